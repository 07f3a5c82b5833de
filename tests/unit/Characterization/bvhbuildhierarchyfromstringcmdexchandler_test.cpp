#include "KivCharacterization/Characterization/bvhbuildhierarchyfromstringcmdexchandler.h"

#include <gtest/gtest.h>
#include <osg/CullFace>
#include <osg/LightModel>
#include <osg/Material>
#include <osgDB/ReadFile>
#include <osgUtil/UpdateVisitor>

#include "KivAnimation/basicanimationmanager.h"
#include "KivAnimation/updatebone.h"
#include "KivCharacterization/Characterization/actorupdatecallbacks.h"
#include "KivCharacterization/Characterization/modelloading.h"
#include "KivManipulator/propsgeode.h"
#include "KivTaskCommand/taskcommand.h"
#include "tests/support/builtpaths.h"
#include "tests/support/figures.h"
#include "tests/support/freshhost.h"
#include "tests/support/manageraccess.h"

namespace {

using namespace KivCharacterization;
using namespace KivTestSupport;
using KivMemoryShare::SceneCfgShare;
using KivRenderState::KivRenderStateManager;
using KivTaskCommand::TaskCommand;

class LoadingAnActor : public FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        avatars["avatar"] = analysed(smallAvatar().get());
        ASSERT_TRUE(loadLabelFont(std::string(KivTestSupport::kRuntimeRoot) + "/Data/Font/arial.ttf", fonts));
    }

    std::unique_ptr<TaskCommand> command(const std::string& bvh, const std::string& id,
                                         const std::string& name)
    {
        auto made = std::make_unique<TaskCommand>();
        made->setCmdExcImp(
            new BVHBuildHierarchyFromStringCmdExcHandler(&avatars, &actors, &fonts, bvh, id, name));
        return made;
    }
    bool load(const std::string& bvh, const std::string& id = "7", const std::string& name = "Seven")
    {
        return command(bvh, id, name)->run();
    }

    static osg::Group* scene() { return SceneCfgShare::instance()->getCharacterSceneNode(); }
    static KivAnimation::BasicAnimationManager* playback()
    {
        return SceneCfgShare::instance()->getBaseAnimationManager();
    }
    static int state() { return KivRenderStateManager::instance()->getCharacterizationState(); }
    static void update()
    {
        osg::ref_ptr<osgUtil::UpdateVisitor> visitor = new osgUtil::UpdateVisitor;
        scene()->accept(*visitor);
    }
    static osg::Switch* switchOf(const SActorInfo& actor, unsigned int child)
    {
        return actor.root->getChild(child)->asSwitch();
    }
    static osg::Node* skeletonGroup(const SActorInfo& actor) { return switchOf(actor, 0)->getChild(0); }
    static KivAnimation::Bone* boneOf(const SActorInfo& actor, const std::string& joint)
    {
        return actor.fitting.jointMap.at(joint);
    }

    IveInfoTable avatars;
    ActorTable actors;
    FontTable fonts;
};

TEST_F(LoadingAnActor, failsOnATextThatIsNoMotionAndReturnsToReady)
{
    for (const char* text : {"", "not a motion", "HIERARCHY\nROOT"}) {
        EXPECT_FALSE(load(text)) << text;
        EXPECT_TRUE(actors.empty());
        EXPECT_EQ(scene()->getNumChildren(), 0u);
        EXPECT_EQ(playback()->animationCount(), 0u);
        EXPECT_EQ(state(), 2);
    }
}

TEST_F(LoadingAnActor, failsWithoutAnAvatar)
{
    avatars.clear();
    EXPECT_FALSE(load(smallFigureBvh()));
    EXPECT_TRUE(actors.empty());
}

TEST_F(LoadingAnActor, takesTheEarlierActorOutOfTheSceneWhenTheReplacementFails)
{
    ASSERT_TRUE(load(smallFigureBvh(), "7"));
    ASSERT_TRUE(load(smallFigureBvh(), "8"));
    EXPECT_FALSE(load("broken", "7"));
    EXPECT_EQ(actors.count("7"), 0u);
    EXPECT_EQ(actors.count("8"), 1u);
    EXPECT_EQ(scene()->getNumChildren(), 1u);
    EXPECT_EQ(playback()->animationCount(), 1u);
}

TEST_F(LoadingAnActor, leavesTheNamesAsTheyAreWhenTheReplacementFails)
{
    // Names are shown or hidden by a load that succeeds; the next one sets them right.
    ASSERT_TRUE(load(smallFigureBvh(), "7"));
    ASSERT_TRUE(load(smallFigureBvh(), "8"));
    EXPECT_FALSE(load("broken", "7"));
    EXPECT_TRUE(actors.at("8").labelSwitch->getValue(0));
    ASSERT_TRUE(load(smallFigureBvh(), "8"));
    EXPECT_FALSE(actors.at("8").labelSwitch->getValue(0));
    EXPECT_EQ(scene()->getNumChildren(), 1u);
    EXPECT_EQ(playback()->animationCount(), 1u);
}

TEST_F(LoadingAnActor, goesThroughBuildingToReady)
{
    auto loading = command(smallFigureBvh(), "7", "Seven");
    EXPECT_TRUE(loading->cmdExcImp()->prepare());
    EXPECT_EQ(state(), 1);
    EXPECT_EQ(scene()->getNumChildren(), 0u);
    EXPECT_TRUE(loading->cmdExcImp()->execute());
    EXPECT_EQ(state(), 1);
    EXPECT_EQ(scene()->getNumChildren(), 1u);
    EXPECT_TRUE(loading->cmdExcImp()->finish());
    EXPECT_EQ(state(), 2);
}

/// How many parents all nodes of a scene have together.
class ParentCount : public osg::NodeVisitor
{
public:
    explicit ParentCount(osg::Node& scene) : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN)
    {
        setNodeMaskOverride(~0u);
        scene.accept(*this);
    }
    void apply(osg::Node& node) override
    {
        parents += node.getNumParents();
        traverse(node);
    }
    unsigned int parents = 0;
};

TEST_F(LoadingAnActor, leavesWhatIsInTheSceneAloneUntilExecute)
{
    ASSERT_TRUE(load(smallFigureBvh(), "7"));
    const unsigned int before = ParentCount(*scene()).parents;
    auto loading = command(smallFigureBvh(), "8", "Eight");
    ASSERT_TRUE(loading->cmdExcImp()->prepare());
    EXPECT_EQ(ParentCount(*scene()).parents, before);
}

TEST_F(LoadingAnActor, answersFalseFromExecuteWithoutANewActor)
{
    auto loading = command("broken", "7", "Seven");
    EXPECT_FALSE(loading->cmdExcImp()->prepare());
    EXPECT_FALSE(loading->cmdExcImp()->execute());
}

TEST_F(LoadingAnActor, fillsItsRecord)
{
    ASSERT_TRUE(load(smallFigureBvh()));
    const SActorInfo& actor = actors.at("7");
    EXPECT_EQ(actor.actorId, "7");
    EXPECT_EQ(actor.root, scene()->getChild(0));
    EXPECT_EQ(actor.animation->getId(), "7");
    EXPECT_EQ(actor.animation->getAttachNodePtr(), switchOf(actor, 0));
    EXPECT_TRUE(playback()->isPlaying(actor.animation.get()));
    EXPECT_TRUE(actor.stickContactCallback.valid());
    EXPECT_EQ(actor.labelText->getText().createUTF8EncodedString(), "Seven");
    // The record starts afresh after the label was made.
    EXPECT_FALSE(actor.hasLabel);
    EXPECT_EQ(actor.fitting.jointMap.count("Head"), 1u);
    EXPECT_EQ(actor.fitting.segmentMap.count("Hips&LeftUpLeg"), 1u);
}

TEST_F(LoadingAnActor, buildsItsSubtreeWithMasksAndSwitchesOff)
{
    auto loading = command(smallFigureBvh(), "7", "Seven");
    ASSERT_TRUE(loading->cmdExcImp()->prepare());
    const SActorInfo& actor = actors.at("7");
    ASSERT_EQ(actor.root->getNumChildren(), 3u);
    EXPECT_FALSE(switchOf(actor, 0)->getValue(0));
    EXPECT_EQ(skeletonGroup(actor)->getNodeMask(), 1u);
    osg::Switch* centreOfMass = switchOf(actor, 1);
    EXPECT_EQ(centreOfMass->getNodeMask(), 4u);
    ASSERT_EQ(centreOfMass->getNumChildren(), 2u);
    EXPECT_FALSE(centreOfMass->getValue(0));
    EXPECT_EQ(switchOf(actor, 2)->getNodeMask(), 4u);
    EXPECT_EQ(switchOf(actor, 2)->getNumChildren(), 0u);
    // Contacts first, then the centre of mass, both on the one switch.
    osg::Callback* first = centreOfMass->getUpdateCallback();
    EXPECT_EQ(first, actor.stickContactCallback.get());
    EXPECT_TRUE(dynamic_cast<GravityUpdateCallback*>(first->getNestedCallback()));
    EXPECT_EQ(switchOf(actor, 2)->getUpdateCallback(), nullptr);
}

TEST_F(LoadingAnActor, showsItsSkeletonOnceAFrameIsPosed)
{
    ASSERT_TRUE(load(smallFigureBvh()));
    EXPECT_FALSE(switchOf(actors.at("7"), 0)->getValue(0));
    update();
    EXPECT_TRUE(switchOf(actors.at("7"), 0)->getValue(0));
}

TEST_F(LoadingAnActor, lightsBothSidesAndForcesBackFacesToBeDrawn)
{
    ASSERT_TRUE(load(smallFigureBvh()));
    const osg::StateSet* stateSet = skeletonGroup(actors.at("7"))->getStateSet();
    const auto* lightModel =
        dynamic_cast<const osg::LightModel*>(stateSet->getAttribute(osg::StateAttribute::LIGHTMODEL));
    ASSERT_TRUE(lightModel);
    EXPECT_TRUE(lightModel->getTwoSided());
    const osg::StateSet::RefAttributePair* pair = stateSet->getAttributePair(osg::StateAttribute::CULLFACE);
    ASSERT_TRUE(pair);
    EXPECT_EQ(static_cast<const osg::CullFace*>(pair->first.get())->getMode(), osg::CullFace::BACK);
    EXPECT_EQ(pair->second, static_cast<unsigned int>(osg::StateAttribute::OVERRIDE));
    EXPECT_EQ(stateSet->getMode(GL_CULL_FACE), static_cast<unsigned int>(osg::StateAttribute::OVERRIDE));
}

TEST_F(LoadingAnActor, makesTheCentreOfMassMarkersTranslucent)
{
    ASSERT_TRUE(load(smallFigureBvh()));
    osg::Switch* markers = switchOf(actors.at("7"), 1);
    for (unsigned int i = 0; i < 2; ++i) {
        const osg::StateSet* stateSet = markers->getChild(i)->getStateSet();
        EXPECT_EQ(stateSet->getMode(GL_BLEND), osg::StateAttribute::ON);
        EXPECT_EQ(stateSet->getRenderingHint(), osg::StateSet::TRANSPARENT_BIN);
        const auto* material =
            dynamic_cast<const osg::Material*>(stateSet->getAttribute(osg::StateAttribute::MATERIAL));
        ASSERT_TRUE(material);
        EXPECT_EQ(material->getDiffuse(osg::Material::FRONT), osg::Vec4(0.7f, 0, 0, 0.8f));
        EXPECT_EQ(material->getAmbient(osg::Material::BACK), osg::Vec4(0.7f, 0, 0, 0.8f));
    }
}

TEST_F(LoadingAnActor, hangsTheLabelBesideTheHead)
{
    ASSERT_TRUE(load(smallFigureBvh()));
    const SActorInfo& actor = actors.at("7");
    EXPECT_EQ(actor.labelSwitch->getParent(0), boneOf(actor, "Neck"));
    EXPECT_EQ(actor.labelSwitch->getNodeMask(), 4u);
    EXPECT_TRUE(dynamic_cast<ActorNameUpdateCallback*>(boneOf(actor, "Head")->getUpdateCallback()));
}

TEST_F(LoadingAnActor, hangsTheLabelBesideTheSkeletonOfAFigureWithoutAHead)
{
    std::string headless = smallFigureBvh();
    headless.replace(headless.find("JOINT Head"), 10, "JOINT Knob");
    ASSERT_TRUE(load(headless));
    const SActorInfo& actor = actors.at("7");
    EXPECT_EQ(actor.labelSwitch->getParent(0), actor.root.get());
    EXPECT_EQ(actor.root->getChild(3), actor.labelSwitch.get());
    EXPECT_TRUE(dynamic_cast<ActorNameUpdateCallback*>(switchOf(actor, 0)->getUpdateCallback()));
}

TEST_F(LoadingAnActor, givesTheLabelTheSystemsProperties)
{
    ASSERT_TRUE(load(smallFigureBvh()));
    const osgText::Text3D& text = *actors.at("7").labelText;
    EXPECT_EQ(text.getFont(), fonts.begin()->second.get());
    EXPECT_EQ(text.getStyle()->getThicknessRatio(), 0.0f);
    EXPECT_EQ(text.getCharacterHeight(), 12.0f);
    EXPECT_EQ(text.getDrawMode(), static_cast<unsigned int>(osgText::TextBase::TEXT));
    EXPECT_EQ(text.getAxisAlignment(), osgText::TextBase::XZ_PLANE);
    EXPECT_EQ(text.getAlignment(), osgText::TextBase::CENTER_CENTER);
    EXPECT_EQ(text.getColor(), osg::Vec4(1, 1, 1, 1));
    EXPECT_TRUE(text.getAutoRotateToScreen());
    EXPECT_EQ(text.getCharacterSizeMode(), osgText::TextBase::SCREEN_COORDS);
    EXPECT_TRUE(text.computeBoundingBox().valid());
}

TEST_F(LoadingAnActor, wearsTheFirstOfSeveralAvatarsAndTheFirstOfSeveralFonts)
{
    // Both stand behind the ones that were there before.
    avatars["z"];
    const osg::ref_ptr<osgText::Font> first = fonts.begin()->second;
    fonts["~"] = new osgText::Font;
    ASSERT_EQ(avatars.begin()->first, "avatar");
    ASSERT_EQ(fonts.begin()->second, first);
    ASSERT_TRUE(load(smallFigureBvh()));
    EXPECT_TRUE(findPiece(*boneOf(actors.at("7"), "Head"), "Joint:Head$").copy);
    EXPECT_EQ(actors.at("7").labelText->getFont(), first.get());
}

TEST_F(LoadingAnActor, buildsEverythingButTheLabelWithoutAFont)
{
    for (const bool nullEntry : {false, true}) {
        fonts.clear();
        if (nullEntry) {
            fonts["no font"] = nullptr;
        }
        ASSERT_TRUE(load(smallFigureBvh()));
        ASSERT_TRUE(load(smallFigureBvh(), "8"));
        const SActorInfo& actor = actors.at("7");
        EXPECT_FALSE(actor.labelSwitch.valid());
        EXPECT_FALSE(actor.labelText.valid());
        EXPECT_EQ(boneOf(actor, "Head")->getUpdateCallback(), nullptr);
        EXPECT_EQ(actor.root->getNumChildren(), 3u);
    }
}

TEST_F(LoadingAnActor, takesAnEmptyName)
{
    ASSERT_TRUE(load(smallFigureBvh(), "7", ""));
    EXPECT_TRUE(actors.at("7").labelText->getText().empty());
    update();
}

TEST_F(LoadingAnActor, namesItAfterTheRootJointWhenItHasNoId)
{
    ASSERT_TRUE(load(smallFigureBvh(), ""));
    ASSERT_EQ(actors.count("Hips"), 1u);
    EXPECT_EQ(actors.at("Hips").animation->getId(), "Hips");
}

TEST_F(LoadingAnActor, showsNoNameOfALoneActorAndAllNamesOfTwo)
{
    ASSERT_TRUE(load(smallFigureBvh(), "7"));
    EXPECT_FALSE(actors.at("7").labelSwitch->getValue(0));
    ASSERT_TRUE(load(smallFigureBvh(), "8"));
    EXPECT_TRUE(actors.at("7").labelSwitch->getValue(0));
    EXPECT_TRUE(actors.at("8").labelSwitch->getValue(0));
}

TEST_F(LoadingAnActor, replacesTheEarlierOneOfItsIndexInExecute)
{
    ASSERT_TRUE(load(smallFigureBvh(), "7"));
    const osg::ref_ptr<KivAnimation::Animation> oldAnimation = actors.at("7").animation;
    const osg::ref_ptr<osg::Group> oldRoot = actors.at("7").root;
    auto loading = command(smallFigureBvh(), "7", "Seven");
    ASSERT_TRUE(loading->cmdExcImp()->prepare());
    EXPECT_EQ(scene()->getChild(0), oldRoot.get());
    EXPECT_TRUE(playback()->isPlaying(oldAnimation.get()));
    ASSERT_TRUE(loading->cmdExcImp()->execute());
    EXPECT_EQ(actors.size(), 1u);
    ASSERT_EQ(scene()->getNumChildren(), 1u);
    EXPECT_EQ(scene()->getChild(0), actors.at("7").root.get());
    EXPECT_NE(scene()->getChild(0), oldRoot.get());
    EXPECT_FALSE(playback()->isRegistered(oldAnimation.get()));
    EXPECT_EQ(playback()->animationCount(), 1u);
}

TEST_F(LoadingAnActor, takesOverTheRootMatrixOfTheOneItReplaces)
{
    // A replacement at rest stays where the old actor stood.
    const std::string moving = smallFigureBvh();
    const std::string atRest = moving.substr(0, moving.find("MOTION"));
    ASSERT_TRUE(load(moving, "7"));
    playback()->pause();
    playback()->setTime(0.5);
    update();
    const osg::Matrixd oldMatrix = boneOf(actors.at("7"), "Hips")->getMatrix();
    ASSERT_NEAR(oldMatrix.getTrans().x(), 10.0, 1e-4);
    ASSERT_TRUE(load(atRest, "7"));
    update();
    const KivAnimation::Bone* hips = boneOf(actors.at("7"), "Hips");
    EXPECT_EQ(hips->getMatrix(), oldMatrix);
    EXPECT_EQ(hips->getMatrixInSkeletonSpace(), oldMatrix);
    EXPECT_EQ(boneOf(actors.at("7"), "Neck")->getMatrixInSkeletonSpace(),
              boneOf(actors.at("7"), "Neck")->getMatrix() * oldMatrix);
}

TEST_F(LoadingAnActor, paintsTheContactColoursThatWereSetBefore)
{
    KivRenderStateManager::instance()->setBVHContactColor("LeftLeg", {{9, 9, 9}, 0.1f, 0.2f, 0.3f});
    KivRenderStateManager::instance()->setBVHContactColor("NoSuchJoint", {{9, 9, 9}, 1, 1, 1});
    ASSERT_TRUE(load(smallFigureBvh()));
    osg::Vec4f painted;
    ASSERT_TRUE(actors.at("7").animation->getJointContactColor("LeftLeg", painted));
    EXPECT_EQ(painted, osg::Vec4f(0.1f, 0.2f, 0.3f, 1.0f));
    EXPECT_FALSE(actors.at("7").animation->getJointContactColor("Hips", painted));
}

TEST_F(LoadingAnActor, recordsItsProps)
{
    ASSERT_TRUE(load(smallFigureWithPropsBvh()));
    const PropsMap& props = actors.at("7").fitting.propsMap;
    ASSERT_EQ(props.size(), 1u);
    EXPECT_EQ(props.at("LeftProps")->getPropsName(), "7#LeftProps");
    EXPECT_EQ(props.at("LeftProps")->getActorName(), "7");
}

TEST_F(LoadingAnActor, leavesNothingBehindWhenTheNewActorGoesBeforeExecute)
{
    auto loading = command(smallFigureBvh(), "7", "Seven");
    ASSERT_TRUE(loading->cmdExcImp()->prepare());
    actors.clear();
    EXPECT_FALSE(loading->cmdExcImp()->execute());
    EXPECT_EQ(scene()->getNumChildren(), 0u);
    EXPECT_EQ(playback()->animationCount(), 0u);
}

TEST_F(LoadingAnActor, cutsTheTextAtItsFirstNul)
{
    CharacterizationManagerAccess access(*CharacterizationManager::instance());
    access.avatars = avatars;
    TaskCommand cut;
    CharacterizationManager::instance()->createLoadBVHCommand(smallFigureBvh() + std::string("\0junk", 5), 7,
                                                              "Seven", &cut);
    EXPECT_TRUE(cut.run());
    EXPECT_EQ(access.actors.count("7"), 1u);
}

TEST_F(LoadingAnActor, isCalledWhatTheManagerIsToldAndKeyedByItsSignedIndex)
{
    CharacterizationManagerAccess access(*CharacterizationManager::instance());
    access.avatars = avatars;
    access.fonts = fonts;
    TaskCommand loading;
    CharacterizationManager::instance()->createLoadBVHCommand(smallFigureBvh(), -7, "Seven", &loading);
    ASSERT_TRUE(loading.run());
    ASSERT_EQ(access.actors.count("-7"), 1u);
    EXPECT_EQ(access.actors.at("-7").labelText->getText().createUTF8EncodedString(), "Seven");
}

}  // namespace
