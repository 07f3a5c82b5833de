#include "KivCharacterization/characterizationmanager.h"

#include <osg/Notify>

#include "KivCharacterization/Characterization/actorcmdexchandlers.h"
#include "KivCharacterization/Characterization/actorkey.h"
#include "KivCharacterization/Characterization/bvhbuildhierarchyfromstringcmdexchandler.h"
#include "KivCharacterization/Characterization/cameracmdexchandlers.h"
#include "KivCharacterization/Characterization/kivpropsproertymanager.h"
#include "KivCharacterization/Characterization/modelloading.h"
#include "KivCharacterization/Characterization/propscmdexchandlers.h"
#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/commandonloan.h"
#include "KivCharacterization/common/iveinfo.h"
#include "KivCommonDef/kivfileutils.h"
#include "KivErrorOperator/tavrincommonerrormsg.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "KivTaskCommand/taskcommand.h"

namespace KivCharacterization {

using KivErrorOperator::TavrinCommonErrorMsg;
using KivRenderState::KivRenderStateManager;
using KivTaskCommand::TaskCommand;

CharacterizationManager* CharacterizationManager::m_pIns = nullptr;

CharacterizationManager* CharacterizationManager::instance()
{
    if (!m_pIns) {
        m_pIns = new CharacterizationManager;
    }
    return m_pIns;
}

void CharacterizationManager::releaseIns()
{
#ifndef NDEBUG
    if (m_pIns && CommandOnLoan::count() > 0) {
        OSG_WARN << "CharacterizationManager::releaseIns: " << CommandOnLoan::count()
                 << " commands still point into the manager; run or drop them first" << std::endl;
    }
#endif
    delete m_pIns;
    m_pIns = nullptr;
}

CharacterizationManager::CharacterizationManager() : m_bEnableCharacterization(true) {}

CharacterizationManager::CharacterizationManager(const CharacterizationManager& other) = default;

CharacterizationManager& CharacterizationManager::operator=(const CharacterizationManager& other) = default;

CharacterizationManager::~CharacterizationManager()
{
    // Props of released actors must find no observer any more.
    KivPropsProertyManager::DestroyInstance();
    m_mapIveInfo.clear();
    m_mapActors.clear();
    m_strRootDir.clear();
    m_bEnableCharacterization = false;
    m_spHeldObject = nullptr;
    m_mapFonts.clear();
}

bool CharacterizationManager::initalCharacterModel(const std::string& rootDir)
{
    m_strRootDir = rootDir;
    const std::string dir =
        m_strRootDir.empty() ? KivCommonDef::KivFileUtils::GetCurrentWorkingDir() : m_strRootDir;
    TavrinCommonErrorMsg* sink = TavrinCommonErrorMsg::instance();
    sink->LogInfo(dir);
    const auto report = [sink](const std::string& path, bool loaded) {
        sink->SetLastErrorMsg("Read file :" + path + (loaded ? "successed!" : "failed!"));  // frozen
    };

    const std::string ivePath = dir + "/" + "Data/IVE/avatar.ive";
    report(ivePath, loadIveFile(ivePath));

    const std::string fontPath = dir + "/" + "Data/Font/arial.ttf";
    const bool fontLoaded = loadFontFile(fontPath);
    report(fontPath, fontLoaded);
    // The font alone decides: without an avatar the host can still start, and hears of it through the sink.
    return fontLoaded;
}

bool CharacterizationManager::loadIveFile(const std::string& path)
{
    if (!m_mapIveInfo.empty()) {
        return true;
    }
    osg::ref_ptr<osg::Node> node;
    if (!readAvatar(path, node)) {
        return false;
    }
    // A model that cannot be analysed stays, and counts as loaded from then on.
    CommonTypeDef::SIveInfo& info = m_mapIveInfo[path];
    info.node = node;
    return AnalysisIve(node.get(), info);
}

bool CharacterizationManager::loadFontFile(const std::string& path)
{
    return loadLabelFont(path, m_mapFonts);
}

bool CharacterizationManager::AnalysisIve(osg::Node* model, CommonTypeDef::SIveInfo& info)
{
    return analyseAvatar(model, info);
}

bool CharacterizationManager::EnableCharacterizaion()
{
    m_bEnableCharacterization = true;
    return true;
}

bool CharacterizationManager::DisableCharacterizaion()
{
    m_bEnableCharacterization = false;
    return true;
}

bool CharacterizationManager::IsEnableCharacterizaion()
{
    return m_bEnableCharacterization;
}

bool CharacterizationManager::GetCameraTraceState(bool& traceOn, std::string& traceId)
{
    const KivRenderStateManager* state = KivRenderStateManager::instance();
    traceOn = state->getCameraTraceState();
    traceId = state->getCameraTraceIdStr();
    return true;
}

bool CharacterizationManager::RegistPropsPropertyChangeNotify(IPropsPropertyModifyNotify* observer)
{
    return KivPropsProertyManager::Instance()->RegistNotify(observer);
}

bool CharacterizationManager::UnRegistPropsPropertyChangeNotify(IPropsPropertyModifyNotify* observer)
{
    return KivPropsProertyManager::Instance()->UnRegistNotify(observer);
}

bool CharacterizationManager::ResetCharacterizationManager(TaskCommand* cmd)
{
    cmd->setCmdExcImp(new ResetCharacterizaionSessionCmdExcHandler(&m_mapActors));
    return true;
}

bool CharacterizationManager::ClearOrRemoveActor(TaskCommand* cmd, size_t count, unsigned int actorId)
{
    cmd->setCmdExcImp(new CmdRequireActorCountExcHandler(&m_mapActors, count, actorKey(actorId)));
    return true;
}

bool CharacterizationManager::CameraTrace(TaskCommand* cmd, bool traceOn, std::string traceId)
{
    cmd->setCmdExcImp(new CameraTraceCmdExcHandler(&m_mapActors, traceId, traceOn));
    return true;
}

bool CharacterizationManager::CameraHomePosition(TaskCommand* cmd)
{
    cmd->setCmdExcImp(new CameraHomePositionCmdExcHandler);
    return true;
}

bool CharacterizationManager::createLoadBVHCommand(const std::string& hierarchy, int actorIndex,
                                                   const std::string& actorName, TaskCommand* cmd)
{
    if (!IsEnableCharacterizaion()) {
        KivRenderStateManager::instance()->setCharacterizationState(
            KivCharacterizationCommonDef::CharacterizationReady);
        return false;
    }
    // The text ends at its first NUL: readers of the other side see C strings.
    cmd->setCmdExcImp(new BVHBuildHierarchyFromStringCmdExcHandler(&m_mapIveInfo, &m_mapActors, &m_mapFonts,
                                                                   std::string(hierarchy.c_str()),
                                                                   actorKey(actorIndex), actorName));
    return true;
}

bool CharacterizationManager::createChangeActorNameCommand(unsigned int actorId, const std::string& newName,
                                                           TaskCommand* cmd)
{
    cmd->setCmdExcImp(new ChangeActorNameExcHandler(&m_mapActors, &m_mapFonts, actorKey(actorId), newName));
    return true;
}

bool CharacterizationManager::ChangeActorStactColorCommand(const std::string& jointName,
                                                           const KivCommonDef::KIV_STICKCONTACT_COLOR& colour,
                                                           TaskCommand* cmd)
{
    cmd->setCmdExcImp(new ChangeStickContactColorCmdExcHandler(&m_mapActors, colour, jointName));
    return true;
}

bool CharacterizationManager::SetPropsGemoetryMat(TaskCommand* cmd, int actorIndex, const std::string& name,
                                                  const double* matrix)
{
    cmd->setCmdExcImp(new PropsGemoetryMatCmdExcHandler(&m_mapActors, name, actorKey(actorIndex), matrix));
    return true;
}

bool CharacterizationManager::ShowPropsDragger(TaskCommand* cmd, int actorIndex, const std::string& name,
                                               bool show)
{
    cmd->setCmdExcImp(new PropsModifyCmdExcHandler(&m_mapActors, name, actorKey(actorIndex),
                                                   PropsModifyKind::PropsDragger, show));
    return true;
}

bool CharacterizationManager::ShowContactPointDragger(TaskCommand* cmd, int actorIndex,
                                                      const std::string& name, bool show)
{
    cmd->setCmdExcImp(new PropsModifyCmdExcHandler(&m_mapActors, name, actorKey(actorIndex),
                                                   PropsModifyKind::ContactPointDragger, show));
    return true;
}

}  // namespace KivCharacterization
