#include "KivCharacterization/Characterization/actorcmdexchandlers.h"

#include <cstdlib>

#include "KivAnimation/animation.h"
#include "KivAnimation/basicanimationmanager.h"
#include "KivCharacterization/Characterization/contactcolour.h"
#include "KivCharacterization/Characterization/labelvisibility.h"
#include "KivCharacterization/common/commandcodes.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivReader/readerwriterbvh.h"
#include "KivRenderState/kivrenderstatemanager.h"

namespace KivCharacterization {

using KivMemoryShare::SceneCfgShare;
using KivRenderState::KivRenderStateManager;

ResetCharacterizaionSessionCmdExcHandler::ResetCharacterizaionSessionCmdExcHandler(ActorTable* actors)
    : ICmdExcDelegate(kResetSessionCodes[0], kResetSessionCodes[1], kResetSessionCodes[2],
                      kResetSessionCodes[3]),
      m_pActors(actors)
{}

bool ResetCharacterizaionSessionCmdExcHandler::execute()
{
    osg::Group* scene = SceneCfgShare::instance()->getCharacterSceneNode();
    for (const auto& [key, actor] : *m_pActors) {
        scene->removeChild(actor.root.get());
    }
    m_pActors->clear();
    KivReader::ReaderWriterBVH::resetKivReader();
    return true;
}

CmdRequireActorCountExcHandler::CmdRequireActorCountExcHandler(ActorTable* actors, std::size_t count,
                                                               const std::string& actorId)
    : ICmdExcDelegate(kRemoveActorCodes[0], kRemoveActorCodes[1], kRemoveActorCodes[2], kRemoveActorCodes[3]),
      m_pActors(actors),
      m_nCount(count),
      m_strActorId(actorId)
{}

bool CmdRequireActorCountExcHandler::prepare()
{
    if (m_nCount > m_pActors->size()) {
        return false;
    }
    if (m_nCount == 0) {
        for (auto actor = m_pActors->cbegin(); actor != m_pActors->cend(); ++actor) {
            select(actor);
        }
        return true;
    }
    const auto actor = m_strActorId.empty() ? m_pActors->cend() : m_pActors->find(m_strActorId);
    if (actor != m_pActors->cend()) {
        select(actor);
    }
    return true;
}

void CmdRequireActorCountExcHandler::select(ActorTable::const_iterator actor)
{
    SActorRemoval removal;
    removal.actorNumber = std::atoi(actor->first.c_str());
    removal.root = actor->second.root.get();
    removal.animation = actor->second.animation.get();
    m_vecRemovals.push_back(removal);
    m_vecRemovedKeys.push_back(actor->first);
}

bool CmdRequireActorCountExcHandler::execute()
{
    SceneCfgShare* share = SceneCfgShare::instance();
    for (const SActorRemoval& removal : m_vecRemovals) {
        osg::ref_ptr<osg::Node> root;
        if (removal.root.lock(root)) {
            share->getCharacterSceneNode()->removeChild(root.get());
        }
        osg::ref_ptr<KivAnimation::Animation> animation;
        if (removal.animation.lock(animation)) {
            animation->removeAnimationFrameDataFlag();
            share->getBaseAnimationManager()->unregisterAnimation(animation.get());
        }
    }
    for (const std::string& key : m_vecRemovedKeys) {
        m_pActors->erase(key);
    }
    updateLabelVisibility(*m_pActors);
    return true;
}

ChangeActorNameExcHandler::ChangeActorNameExcHandler(ActorTable* actors, FontTable* fonts,
                                                     const std::string& actorId, const std::string& newName)
    : ICmdExcDelegate(kRenameActorCodes[0], kRenameActorCodes[1], kRenameActorCodes[2], kRenameActorCodes[3]),
      m_pActors(actors),
      m_pFonts(fonts),
      m_strActorId(actorId),
      m_strNewName(newName)
{}

bool ChangeActorNameExcHandler::execute()
{
    const auto actor = m_pActors->find(m_strActorId);
    if (actor == m_pActors->end() || !actor->second.labelText) {
        return false;
    }
    // Names are UTF-8, as they are where the label is made.
    actor->second.labelText->setText(m_strNewName, osgText::String::ENCODING_UTF8);
    return true;
}

ChangeStickContactColorCmdExcHandler::ChangeStickContactColorCmdExcHandler(
    ActorTable* actors, const KivCommonDef::KIV_STICKCONTACT_COLOR& colour, const std::string& jointName)
    : ICmdExcDelegate(kColourContactCodes[0], kColourContactCodes[1], kColourContactCodes[2],
                      kColourContactCodes[3]),
      m_pActors(actors),
      m_color(colour),
      m_strJointName(jointName)
{}

bool ChangeStickContactColorCmdExcHandler::prepare()
{
    KivRenderStateManager::instance()->setBVHContactColor(m_strJointName, m_color);
    return true;
}

bool ChangeStickContactColorCmdExcHandler::execute()
{
    for (const auto& [key, actor] : *m_pActors) {
        if (actor.animation) {
            actor.animation->ChangeJointContactColor(m_strJointName, contactColour(m_color));
        }
    }
    return true;
}

}  // namespace KivCharacterization
