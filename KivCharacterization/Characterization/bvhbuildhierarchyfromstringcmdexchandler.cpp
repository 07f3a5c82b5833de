#include "KivCharacterization/Characterization/bvhbuildhierarchyfromstringcmdexchandler.h"

#include "KivAnimation/animation.h"
#include "KivAnimation/basicanimationmanager.h"
#include "KivCharacterization/Characterization/actorscene.h"
#include "KivCharacterization/Characterization/actorupdatecallbacks.h"
#include "KivCharacterization/Characterization/characterbvh.h"
#include "KivCharacterization/Characterization/contactcolour.h"
#include "KivCharacterization/Characterization/labelvisibility.h"
#include "KivCharacterization/Characterization/namelabel.h"
#include "KivCharacterization/Characterization/nodemasks.h"
#include "KivCharacterization/Characterization/rootjoint.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivReader/readerwriterbvh.h"
#include "KivRenderState/kivrenderstatemanager.h"

namespace KivCharacterization {

using KivMemoryShare::SceneCfgShare;
using KivRenderState::KivRenderStateManager;

BVHBuildHierarchyFromStringCmdExcHandler::BVHBuildHierarchyFromStringCmdExcHandler(
    IveInfoTable* avatars, ActorTable* actors, FontTable* fonts, const std::string& hierarchy,
    const std::string& actorId, const std::string& actorName)
    : ICmdExcDelegate(1, 2, 3, 4),
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
    return build();
}

bool BVHBuildHierarchyFromStringCmdExcHandler::execute()
{
    if (!swapIn()) {
        return false;
    }
    UpdateLabelVisibility(*m_pActors);
    return true;
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
    const std::string id = m_strActorId.empty() ? name : m_strActorId;
    SActorInfo& actor = buildScene(id, *skeleton, *animation);
    if (AttachEntityToBvhSkeleton(id, skeleton, actor.fitting, m_pAvatars->begin()->second) == 0) {
        return false;
    }
    osg::ref_ptr<osg::Group> oldRoot;
    if (m_opOldRoot.lock(oldRoot)) {
        TakeOverRootJointMatrix(*oldRoot, *actor.root);
    }
    SetSkeletonState(*skeleton);
    m_opNewRoot = actor.root.get();
    m_opNewAnimation = animation.get();
    for (const auto& [joint, color] : KivRenderStateManager::instance()->getBVHContactColor()) {
        animation->ChangeJointContactColor(joint, ContactColour(color));
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

SActorInfo& BVHBuildHierarchyFromStringCmdExcHandler::buildScene(const std::string& id, osg::Group& skeleton,
                                                                 KivAnimation::Animation& animation)
{
    osg::ref_ptr<osg::Group> root = new osg::Group;
    const osg::ref_ptr<osg::Switch> skeletonSwitch = MakeSkeletonSwitch(skeleton);
    const osg::ref_ptr<osg::Switch> centreOfMass = MakeCentreOfMassSwitch();
    const osg::ref_ptr<osg::Switch> contacts = MakeContactSwitch();
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
        label = MakeNameLabel(*m_pFonts->begin()->second, m_strActorName);
        AttachNameLabel(label, skeleton, *skeletonSwitch);
        (*m_pActors)[id].hasLabel = true;
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
    return actor;
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

}  // namespace KivCharacterization
