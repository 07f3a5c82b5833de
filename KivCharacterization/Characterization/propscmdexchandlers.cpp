#include "KivCharacterization/Characterization/propscmdexchandlers.h"

#include <algorithm>

#include "KivCharacterization/common/commandcodes.h"
#include "KivManipulator/propsgeode.h"

namespace KivCharacterization {

namespace {

constexpr std::size_t kMatrixNumbers = 16;

/// Leaves the target as it was where there is no such props any more.
bool findTarget(const ActorTable& actors, const std::string& actorKey, const std::string& propsName,
                KivManipulator::PropsGeode*& target)
{
    const auto actor = actors.find(actorKey);
    if (actor == actors.end()) {
        return false;
    }
    const PropsMap& propsMap = actor->second.fitting.propsMap;
    const auto props = propsMap.find(propsName);
    if (props == propsMap.end() || !props->second.valid()) {
        return false;
    }
    target = props->second.get();
    return true;
}

}  // namespace

PropsModifyCmdExcHandler::PropsModifyCmdExcHandler(ActorTable* actors, const std::string& propsName,
                                                   const std::string& actorKey, PropsModifyKind kind,
                                                   bool show)
    : ICmdExcDelegate(kShowDraggerCodes[0], kShowDraggerCodes[1], kShowDraggerCodes[2], kShowDraggerCodes[3]),
      m_pActors(actors),
      m_strPropsName(propsName),
      m_strActorKey(actorKey),
      m_eKind(kind),
      m_bShow(show)
{}

PropsModifyCmdExcHandler::~PropsModifyCmdExcHandler()
{
    m_pTarget = nullptr;
}

bool PropsModifyCmdExcHandler::prepare()
{
    return findTarget(*m_pActors, m_strActorKey, m_strPropsName, m_pTarget);
}

bool PropsModifyCmdExcHandler::execute()
{
    if (!m_pTarget) {
        return false;
    }
    switch (m_eKind) {
        case PropsModifyKind::ContactPointDragger:
            m_pTarget->ShowContactPointDragger(m_bShow);
            break;
        case PropsModifyKind::PropsDragger:
            m_pTarget->ShowPropsDragger(m_bShow);
            break;
    }
    return true;
}

PropsGemoetryMatCmdExcHandler::PropsGemoetryMatCmdExcHandler(ActorTable* actors, const std::string& propsName,
                                                             const std::string& actorKey,
                                                             const double* matrix)
    : ICmdExcDelegate(kPropsMatrixCodes[0], kPropsMatrixCodes[1], kPropsMatrixCodes[2], kPropsMatrixCodes[3]),
      m_pActors(actors),
      m_strPropsName(propsName),
      m_strActorKey(actorKey),
      m_spMatrix(new double[kMatrixNumbers])
{
    std::copy_n(matrix, kMatrixNumbers, m_spMatrix.get());
}

PropsGemoetryMatCmdExcHandler::~PropsGemoetryMatCmdExcHandler()
{
    m_pTarget = nullptr;
}

bool PropsGemoetryMatCmdExcHandler::prepare()
{
    return findTarget(*m_pActors, m_strActorKey, m_strPropsName, m_pTarget);
}

bool PropsGemoetryMatCmdExcHandler::execute()
{
    if (!m_pTarget) {
        return false;
    }
    m_pTarget->SetPropsGemoetryMat(m_spMatrix.get());
    return true;
}

}  // namespace KivCharacterization
