#include "KivCharacterization/Characterization/bvhbuildhierarchyfromstringcmdexchandler.h"

#include "KivAnimation/animation.h"
#include "KivAnimation/basicanimationmanager.h"
#include "KivCharacterization/Characterization/actorscene.h"
#include "KivCharacterization/Characterization/actorupdatecallbacks.h"
#include "KivCharacterization/Characterization/characterbvh.h"
#include "KivCharacterization/Characterization/contactcolour.h"
#include "KivCharacterization/Characterization/labelvisibility.h"
#include "KivCharacterization/Characterization/namelabel.h"
#include "KivCharacterization/Characterization/rootjoint.h"
#include "KivCharacterization/common/commandcodes.h"
#include "KivCharacterization/naming.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivReader/readerwriterbvh.h"
#include "KivRenderState/kivrenderstatemanager.h"

#include <new>

namespace KivCharacterization {

using KivMemoryShare::SceneCfgShare;
using KivRenderState::KivRenderStateManager;

namespace {

/// Short memory is a refusal like any other; only what the fitting throws belongs to the caller.
template <typename Step>
bool succeeds(const Step& step)
{
    try {
        return step();
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace

BVHBuildHierarchyFromStringCmdExcHandler::BVHBuildHierarchyFromStringCmdExcHandler(
    IveInfoTable* avatars, ActorTable* actors, FontTable* fonts, const std::string& hierarchy,
    const std::string& actorId, const std::string& actorName)
    : ICmdExcDelegate(kLoadActorCodes[0], kLoadActorCodes[1], kLoadActorCodes[2], kLoadActorCodes[3]),
      m_pAvatars(avatars),
      m_pActors(actors),
      m_pFonts(fonts),
      m_strHierarchy(hierarchy),
      m_strActorId(actorId),
      m_strActorName(actorName)
{}

bool BVHBuildHierarchyFromStringCmdExcHandler::prepare()
{
    KivRenderStateManager::instance()->setCharacterizationState(
        KivCharacterizationCommonDef::CharacterizationBuilding);
    if (!succeeds([this] { return build(); }) || !dress()) {
        return false;
    }
    if (!succeeds([this] { return complete(); })) {
        m_opNewRoot = nullptr;  // what is not whole is not to be taken in
        return false;
    }
    return true;
}

bool BVHBuildHierarchyFromStringCmdExcHandler::execute()
{
    const bool swapped = succeeds([this] {
        if (!swapIn()) {
            return false;
        }
        updateLabelVisibility(*m_pActors);
        return true;
    });
    if (!swapped) {
        takeOut();
    }
    return swapped;
}

bool BVHBuildHierarchyFromStringCmdExcHandler::finish()
{
    KivRenderStateManager::instance()->setCharacterizationState(
        KivCharacterizationCommonDef::CharacterizationReady);
    return true;
}

bool BVHBuildHierarchyFromStringCmdExcHandler::build()
{
    rememberOldActor();
    if (m_pAvatars->empty()) {
        return false;
    }
    std::string name = m_strActorId;
    osg::Node* readNode = nullptr;
    KivAnimation::Animation* readAnimation = nullptr;
    if (!KivReader::ReaderWriterBVH::readBVHNode(m_strHierarchy, nullptr, &readNode, &readAnimation, name,
                                                 true)) {
        return false;
    }
    const osg::ref_ptr<osg::Node> node = readNode;
    const osg::ref_ptr<KivAnimation::Animation> animation = readAnimation;
    auto* skeleton = dynamic_cast<osg::Group*>(node.get());
    if (!skeleton || !animation) {
        return false;
    }
    m_strBuiltId = m_strActorId.empty() ? name : m_strActorId;
    m_opSkeleton = skeleton;
    buildScene(m_strBuiltId, *skeleton, *animation);
    return true;
}

bool BVHBuildHierarchyFromStringCmdExcHandler::dress()
{
    SActorInfo& actor = (*m_pActors)[m_strBuiltId];
    return AttachEntityToBvhSkeleton(m_strBuiltId, m_opSkeleton.get(), actor.fitting,
                                     m_pAvatars->begin()->second) != 0;
}

bool BVHBuildHierarchyFromStringCmdExcHandler::complete()
{
    const SActorInfo& actor = (*m_pActors)[m_strBuiltId];
    osg::ref_ptr<osg::Group> oldRoot;
    if (m_opOldRoot.lock(oldRoot)) {
        takeOverRootJointMatrix(*oldRoot, *actor.root);
    }
    setSkeletonState(*m_opSkeleton);
    m_opNewRoot = actor.root.get();
    m_opNewAnimation = actor.animation.get();
    for (const auto& [joint, colour] : KivRenderStateManager::instance()->getBVHContactColor()) {
        actor.animation->ChangeJointContactColor(joint, contactColour(colour));
    }
    return true;
}

void BVHBuildHierarchyFromStringCmdExcHandler::rememberOldActor()
{
    const auto old = m_pActors->find(m_strActorId);
    if (old == m_pActors->end()) {
        return;
    }
    m_opOldRoot = old->second.root.get();
    m_opOldAnimation = old->second.animation.get();
    m_pActors->erase(old);
}

void BVHBuildHierarchyFromStringCmdExcHandler::buildScene(const std::string& id, osg::Group& skeleton,
                                                          KivAnimation::Animation& animation)
{
    osg::ref_ptr<osg::Group> root = new osg::Group;
    const osg::ref_ptr<osg::Switch> skeletonSwitch = makeSkeletonSwitch(skeleton);
    const osg::ref_ptr<osg::Switch> centreOfMass = makeCentreOfMassSwitch();
    const osg::ref_ptr<osg::Switch> contacts = makeContactSwitch();
    root->addChild(skeletonSwitch.get());
    root->addChild(centreOfMass.get());
    root->addChild(contacts.get());
    skeleton.setNodeMask(kSkeletonMask);
    centreOfMass->setNodeMask(kOverlayMask);
    contacts->setNodeMask(kOverlayMask);

    // Both callbacks sit on the centre-of-mass switch: contacts are followed before the centre of mass.
    osg::ref_ptr<StickContactUpdateCallback> stickContact =
        new StickContactUpdateCallback(contacts.get(), id);
    centreOfMass->addUpdateCallback(stickContact.get());
    centreOfMass->addUpdateCallback(new GravityUpdateCallback(centreOfMass.get(), id));

    SNameLabel label;
    if (!m_pFonts->empty() && m_pFonts->begin()->second) {
        label = makeNameLabel(*m_pFonts->begin()->second, m_strActorName);
        attachNameLabel(label, skeleton, *skeletonSwitch);
        (*m_pActors)[id].hasLabel = true;  // frozen
        label.labelSwitch->setAllChildrenOff();
        label.labelSwitch->setNodeMask(kOverlayMask);
    }

    // The record starts afresh: hasLabel is false again after a build, as whoever reads it expects.
    SActorInfo& actor = (*m_pActors)[id];
    actor = SActorInfo();
    actor.root = root;
    actor.animation = &animation;
    actor.actorId = id;
    actor.labelSwitch = label.labelSwitch;
    actor.labelText = label.text;
    actor.stickContactCallback = stickContact;
    animation.setId(id);
    animation.setAttachNodePtr(skeletonSwitch.get());
}

bool BVHBuildHierarchyFromStringCmdExcHandler::swapIn()
{
    osg::Group* scene = SceneCfgShare::instance()->getCharacterSceneNode();
    KivAnimation::BasicAnimationManager* manager = SceneCfgShare::instance()->getBaseAnimationManager();

    osg::ref_ptr<osg::Group> oldRoot;
    if (m_opOldRoot.lock(oldRoot)) {
        osg::ref_ptr<KivAnimation::Animation> oldAnimation;
        if (m_opOldAnimation.lock(oldAnimation)) {
            manager->stopAnimation(oldAnimation.get());
            manager->unregisterAnimation(oldAnimation.get());
        }
        scene->removeChild(oldRoot.get());
    }
    osg::ref_ptr<osg::Group> newRoot;
    if (!m_opNewRoot.lock(newRoot)) {
        return false;
    }
    scene->addChild(newRoot.get());
    manager->registerAnimation(m_opNewAnimation.get());
    manager->playAll();
    return true;
}

void BVHBuildHierarchyFromStringCmdExcHandler::takeOut()
{
    osg::ref_ptr<osg::Group> newRoot;
    if (m_opNewRoot.lock(newRoot)) {
        SceneCfgShare::instance()->getCharacterSceneNode()->removeChild(newRoot.get());
    }
    osg::ref_ptr<KivAnimation::Animation> newAnimation;
    if (m_opNewAnimation.lock(newAnimation)) {
        SceneCfgShare::instance()->getBaseAnimationManager()->unregisterAnimation(newAnimation.get());
    }
}

}  // namespace KivCharacterization
