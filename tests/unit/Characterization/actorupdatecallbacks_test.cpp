#include "KivCharacterization/Characterization/actorupdatecallbacks.h"

#include <gtest/gtest.h>
#include <osg/Material>
#include <osg/ShapeDrawable>
#include <osgUtil/UpdateVisitor>

#include "KivCharacterization/Characterization/actorscene.h"
#include "tests/support/figures.h"
#include "tests/support/freshhost.h"

namespace {

using namespace KivCharacterization;
using KivCommonDef::KIV_STICKCONTACT;
using KivMemoryShare::ActorFrameManager;
using KivRenderState::KivRenderStateManager;
using KivTestSupport::bone;

void update(osg::Node& node)
{
    osg::ref_ptr<osgUtil::UpdateVisitor> visitor = new osgUtil::UpdateVisitor;
    node.accept(*visitor);
}

void setState(KivCharacterizationCommonDef::ECharacterizaionState state)
{
    KivRenderStateManager::instance()->setCharacterizationState(state);
}

/// Counts how often the update traversal comes by.
class CountingCallback : public osg::NodeCallback
{
public:
    int calls = 0;
    void operator()(osg::Node* node, osg::NodeVisitor* visitor) override
    {
        ++calls;
        traverse(node, visitor);
    }
};

osg::ref_ptr<CountingCallback> addCountedChild(osg::Group& parent)
{
    osg::ref_ptr<CountingCallback> counting = new CountingCallback;
    osg::ref_ptr<osg::Group> child = new osg::Group;
    child->addUpdateCallback(counting.get());
    parent.addChild(child.get());
    return counting;
}

osg::Vec3d positionOf(osg::Switch& nodes, unsigned int child)
{
    return nodes.getChild(child)->asTransform()->asMatrixTransform()->getMatrix().getTrans();
}

class CentreOfMass : public KivTestSupport::FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        markers = makeCentreOfMassSwitch();
        markers->addUpdateCallback(new GravityUpdateCallback(markers.get(), "3"));
        setState(KivCharacterizationCommonDef::CharacterizationReady);
        KivRenderStateManager::instance()->setCenterOfMassShow(true);
    }

    static void publish(float x, float y, float z)
    {
        const float point[3] = {x, y, z};
        ActorFrameManager::Ins()->WriteActorGravity(3, point, 3);
    }

    bool shown() const { return markers->getValue(0); }

    osg::ref_ptr<osg::Switch> markers;
};

TEST_F(CentreOfMass, staysHiddenWithoutFrameData)
{
    update(*markers);
    EXPECT_FALSE(shown());
}

TEST_F(CentreOfMass, turnsThePointUprightAndDropsItOntoTheGround)
{
    publish(1, 2, 3);
    update(*markers);
    EXPECT_TRUE(shown());
    EXPECT_TRUE(markers->getValue(1));
    EXPECT_EQ(positionOf(*markers, 0), osg::Vec3d(1, -3, 2));
    EXPECT_EQ(positionOf(*markers, 1), osg::Vec3d(1, -3, 0));
}

TEST_F(CentreOfMass, isHiddenWhenAReadFails)
{
    publish(1, 2, 3);
    update(*markers);
    ActorFrameManager::Ins()->RemoveActor(3);
    update(*markers);
    EXPECT_FALSE(shown());
    EXPECT_FALSE(markers->getValue(1));
}

TEST_F(CentreOfMass, isHiddenWhenNotWantedEvenWhileCharacterizationIsNotReady)
{
    publish(1, 2, 3);
    update(*markers);
    setState(KivCharacterizationCommonDef::CharacterizationBuilding);
    KivRenderStateManager::instance()->setCenterOfMassShow(false);
    update(*markers);
    EXPECT_FALSE(shown());
}

TEST_F(CentreOfMass, freezesWhileCharacterizationIsNotReady)
{
    publish(1, 2, 3);
    update(*markers);
    setState(KivCharacterizationCommonDef::CharacterizationBuilding);
    publish(7, 7, 7);
    update(*markers);
    EXPECT_TRUE(shown());
    EXPECT_EQ(positionOf(*markers, 0), osg::Vec3d(1, -3, 2));
}

TEST_F(CentreOfMass, isHiddenWhenAMarkerIsNoTransform)
{
    publish(1, 2, 3);
    update(*markers);
    markers->setChild(1, new osg::Group);
    update(*markers);
    EXPECT_FALSE(shown());
}

TEST_F(CentreOfMass, isShownAgainAsTheFirstMarkerSays)
{
    publish(1, 2, 3);
    markers->setValue(0, true);
    markers->setValue(1, false);
    update(*markers);
    EXPECT_FALSE(markers->getValue(1));
    markers->setValue(0, false);
    markers->setValue(1, true);
    update(*markers);
    EXPECT_TRUE(shown());
}

TEST_F(CentreOfMass, isHiddenWhenAMarkerIsMissing)
{
    publish(1, 2, 3);
    for (unsigned int left : {1u, 0u}) {
        update(*markers);
        markers->removeChildren(left, markers->getNumChildren() - left);
        update(*markers);
        EXPECT_FALSE(shown()) << left << " markers";
    }
}

/// The first marker alone tells whether there is something to hide.
class HidingTheCentreOfMass : public CentreOfMass
{
protected:
    void expectThatTheFirstMarkerDecides()
    {
        markers->setValue(0, true);
        markers->setValue(1, false);
        update(*markers);
        EXPECT_FALSE(markers->getValue(0));

        markers->setValue(0, false);
        markers->setValue(1, true);
        update(*markers);
        EXPECT_TRUE(markers->getValue(1));
    }
};

TEST_F(HidingTheCentreOfMass, goesByTheFirstMarkerWhenNotWanted)
{
    KivRenderStateManager::instance()->setCenterOfMassShow(false);
    expectThatTheFirstMarkerDecides();
}

TEST_F(HidingTheCentreOfMass, goesByTheFirstMarkerWhenAReadFails)
{
    expectThatTheFirstMarkerDecides();
}

TEST_F(HidingTheCentreOfMass, goesByTheFirstMarkerWhenAMarkerIsNoTransform)
{
    publish(1, 2, 3);
    markers->setChild(1, new osg::Group);
    expectThatTheFirstMarkerDecides();
}

TEST_F(CentreOfMass, doesNothingOnceItsSwitchIsGone)
{
    osg::ref_ptr<GravityUpdateCallback> callback = new GravityUpdateCallback(markers.get(), "3");
    publish(1, 2, 3);
    markers = nullptr;
    osg::ref_ptr<osg::Group> other = new osg::Group;
    other->addUpdateCallback(callback.get());
    osg::ref_ptr<CountingCallback> below = addCountedChild(*other);
    update(*other);
    EXPECT_EQ(below->calls, 1);
}

TEST_F(CentreOfMass, followsInTheUpdateTraversalOnly)
{
    publish(1, 2, 3);
    osg::NodeVisitor other(osg::NodeVisitor::NODE_VISITOR);
    auto* callback = dynamic_cast<osg::NodeCallback*>(markers->getUpdateCallback());
    ASSERT_TRUE(callback);
    (*callback)(markers.get(), &other);
    EXPECT_FALSE(shown());
}

TEST_F(CentreOfMass, staysAsItIsWhenNobodyVisits)
{
    publish(1, 2, 3);
    auto* callback = dynamic_cast<osg::NodeCallback*>(markers->getUpdateCallback());
    ASSERT_TRUE(callback);
    (*callback)(markers.get(), nullptr);
    EXPECT_FALSE(shown());
}

class StickContacts : public KivTestSupport::FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        spheres = makeContactSwitch();
        spheres->addUpdateCallback(new StickContactUpdateCallback(spheres.get(), "3"));
        setState(KivCharacterizationCommonDef::CharacterizationReady);
    }

    static void publish(const std::vector<KIV_STICKCONTACT>& contacts)
    {
        ActorFrameManager::Ins()->WriteActorStickContact(3, contacts.data(), contacts.size());
    }

    osg::Vec4 colourOf(unsigned int child) const
    {
        const osg::StateSet* state = spheres->getChild(child)->asGroup()->getChild(0)->getStateSet();
        const auto* material =
            dynamic_cast<const osg::Material*>(state->getAttribute(osg::StateAttribute::MATERIAL));
        EXPECT_EQ(material->getDiffuse(osg::Material::FRONT), material->getAmbient(osg::Material::BACK));
        return material->getDiffuse(osg::Material::FRONT);
    }

    osg::ref_ptr<osg::Switch> spheres;
};

constexpr KIV_STICKCONTACT kTouching = {0.01f, 0.02f, 0.03f, 1, {}};
constexpr KIV_STICKCONTACT kFree = {0.0f, 0.5f, 0.0f, 0, {}};

TEST_F(StickContacts, scaleMetresToCentimetresAndTurnUpright)
{
    publish({kTouching, kFree});
    update(*spheres);
    ASSERT_EQ(spheres->getNumChildren(), 2u);
    EXPECT_NEAR((positionOf(*spheres, 0) - osg::Vec3d(1, -3, 2)).length(), 0.0, 1e-5);
    EXPECT_NEAR((positionOf(*spheres, 1) - osg::Vec3d(0, 0, 50)).length(), 0.0, 1e-5);
    EXPECT_TRUE(spheres->getValue(0));
    EXPECT_TRUE(spheres->getValue(1));
}

TEST_F(StickContacts, areSpheresOfOneAndAHalfCentimetres)
{
    publish({kTouching});
    update(*spheres);
    const osg::Drawable* drawable = spheres->getChild(0)->asGroup()->getChild(0)->asDrawable();
    ASSERT_TRUE(drawable);
    const auto* shape = dynamic_cast<const osg::Sphere*>(drawable->getShape());
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->getRadius(), 1.5f);
    EXPECT_EQ(shape->getCenter(), osg::Vec3());
}

TEST_F(StickContacts, areRedInContactAndBlueElsewhere)
{
    KIV_STICKCONTACT any = kTouching;
    any.contact = 200;
    publish({kTouching, kFree, any});
    update(*spheres);
    EXPECT_EQ(colourOf(0), osg::Vec4(1, 0, 0, 1));
    EXPECT_EQ(colourOf(1), osg::Vec4(0, 0, 1, 1));
    EXPECT_EQ(colourOf(2), osg::Vec4(1, 0, 0, 1));
    publish({kFree, kFree, kFree});
    update(*spheres);
    EXPECT_EQ(colourOf(0), osg::Vec4(0, 0, 1, 1));
}

TEST_F(StickContacts, keepTheirNodesWhileTheirNumberStays)
{
    publish({kTouching, kFree});
    update(*spheres);
    const osg::ref_ptr<osg::Node> first = spheres->getChild(0);
    publish({kFree, kFree});
    update(*spheres);
    EXPECT_EQ(spheres->getChild(0), first.get());
    publish({kFree, kFree, kFree});
    update(*spheres);
    EXPECT_EQ(spheres->getNumChildren(), 3u);
    EXPECT_NE(spheres->getChild(0), first.get());
}

TEST_F(StickContacts, areAllRemovedByASuccessfulReadOfNone)
{
    publish({kTouching, kFree});
    update(*spheres);
    publish({});
    update(*spheres);
    EXPECT_EQ(spheres->getNumChildren(), 0u);
    // The switch is on, and shows nothing: a sphere that is added now is visible.
    spheres->addChild(new osg::Group);
    EXPECT_TRUE(spheres->getValue(0));
}

TEST_F(StickContacts, areSwitchedOnByASuccessfulReadOfNone)
{
    publish({});
    update(*spheres);
    spheres->addChild(new osg::Group);
    EXPECT_TRUE(spheres->getValue(0));
}

TEST_F(StickContacts, havePaintThatIsNeitherForcedNorProtected)
{
    publish({kTouching});
    update(*spheres);
    const osg::StateSet* state = spheres->getChild(0)->asGroup()->getChild(0)->getStateSet();
    EXPECT_EQ(state->getAttributePair(osg::StateAttribute::MATERIAL)->second, 0u);
}

TEST_F(StickContacts, areHiddenWhenAReadFails)
{
    publish({kTouching, kFree});
    update(*spheres);
    ActorFrameManager::Ins()->RemoveActor(3);
    update(*spheres);
    EXPECT_FALSE(spheres->getValue(0));
    EXPECT_FALSE(spheres->getValue(1));
}

TEST_F(StickContacts, ofOneSphereAreNeverHidden)
{
    // Visibility is judged by the second sphere.
    publish({kTouching});
    update(*spheres);
    ActorFrameManager::Ins()->RemoveActor(3);
    update(*spheres);
    EXPECT_TRUE(spheres->getValue(0));
}

TEST_F(StickContacts, areShownAgainAsTheSecondSphereSays)
{
    publish({kTouching, kFree});
    update(*spheres);
    spheres->setValue(0, false);
    update(*spheres);
    EXPECT_FALSE(spheres->getValue(0));
    spheres->setValue(1, false);
    update(*spheres);
    EXPECT_TRUE(spheres->getValue(0));
    EXPECT_TRUE(spheres->getValue(1));
}

TEST_F(StickContacts, moveASphereThatLostItsShape)
{
    publish({kTouching});
    update(*spheres);
    spheres->getChild(0)->asGroup()->removeChildren(0, 1);
    publish({kFree});
    update(*spheres);
    EXPECT_NEAR((positionOf(*spheres, 0) - osg::Vec3d(0, 0, 50)).length(), 0.0, 1e-5);
}

TEST_F(StickContacts, leaveANodeThatIsNoneOfThemWhereItIs)
{
    publish({kTouching, kFree});
    update(*spheres);
    const osg::ref_ptr<osg::Group> foreign = new osg::Group;
    spheres->setChild(0, foreign);
    publish({kFree, kTouching});
    update(*spheres);
    EXPECT_EQ(spheres->getChild(0), foreign.get());
    EXPECT_NEAR((positionOf(*spheres, 1) - osg::Vec3d(1, -3, 2)).length(), 0.0, 1e-5);
    EXPECT_EQ(colourOf(1), osg::Vec4(1, 0, 0, 1));
}

TEST_F(StickContacts, freezeWhileCharacterizationIsNotReady)
{
    publish({kTouching, kFree});
    update(*spheres);
    setState(KivCharacterizationCommonDef::CharacterizationIdle);
    publish({kFree, kFree, kFree});
    update(*spheres);
    EXPECT_EQ(spheres->getNumChildren(), 2u);
    EXPECT_EQ(colourOf(0), osg::Vec4(1, 0, 0, 1));
}

TEST_F(StickContacts, doNothingOnceTheirSwitchIsGone)
{
    osg::ref_ptr<StickContactUpdateCallback> callback = new StickContactUpdateCallback(spheres.get(), "3");
    publish({kTouching, kFree});
    spheres = nullptr;
    osg::ref_ptr<osg::Group> other = new osg::Group;
    other->addUpdateCallback(callback.get());
    const osg::ref_ptr<CountingCallback> below = addCountedChild(*other);
    update(*other);
    EXPECT_EQ(below->calls, 1);
}

TEST_F(StickContacts, followInTheUpdateTraversalOnly)
{
    publish({kTouching, kFree});
    osg::NodeVisitor other(osg::NodeVisitor::NODE_VISITOR);
    auto* callback = dynamic_cast<osg::NodeCallback*>(spheres->getUpdateCallback());
    ASSERT_TRUE(callback);
    (*callback)(spheres.get(), &other);
    EXPECT_EQ(spheres->getNumChildren(), 0u);
}

TEST_F(StickContacts, stopAtWhatTheStoreCopies)
{
    publish(std::vector<KIV_STICKCONTACT>(150, kTouching));
    update(*spheres);
    EXPECT_EQ(spheres->getNumChildren(), 100u);
}

class NameLabel : public KivTestSupport::FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        neck->addChild(head);
        head->addChild(new osg::ShapeDrawable(new osg::Box(osg::Vec3(2, 3, 5), 8, 6, 20)));
        text->setCharacterSize(12.0f);
        callback = new ActorNameUpdateCallback(head.get(), label.get(), text.get());
        head->addUpdateCallback(callback.get());
        label->setMatrix(kBefore);
    }

    const osg::Matrixd kBefore = osg::Matrixd::translate(99, 99, 99);
    osg::ref_ptr<KivAnimation::Bone> neck = bone("7#Neck");
    osg::ref_ptr<KivAnimation::Bone> head = bone("7#Head", osg::Vec3d(0, 0, 10));
    osg::ref_ptr<osg::MatrixTransform> label = new osg::MatrixTransform;
    osg::ref_ptr<osgText::Text3D> text = new osgText::Text3D;
    osg::ref_ptr<ActorNameUpdateCallback> callback;
};

TEST_F(NameLabel, standsAboveTheBoneByTheHeadsExtent)
{
    update(*neck);
    // The box's height, half the letters' height and a gap of one: not the box's top, which is 25 up.
    EXPECT_NEAR((label->getMatrix().getTrans() - osg::Vec3d(2, 3, 20 + 6 + 1)).length(), 0.0, 1e-4);
}

TEST_F(NameLabel, comesDownAgainOverAHeadThatGetsSmaller)
{
    update(*neck);
    head->setChild(0, new osg::ShapeDrawable(new osg::Box(osg::Vec3(2, 3, 5), 8, 6, 10)));
    update(*neck);
    EXPECT_NEAR((label->getMatrix().getTrans() - osg::Vec3d(2, 3, 10 + 6 + 1)).length(), 0.0, 1e-4);
}

TEST_F(NameLabel, makesRoomForWhatIsHiddenAtTheHead)
{
    const osg::ref_ptr<osg::Switch> hidden = new osg::Switch;
    hidden->addChild(head->getChild(0), false);
    head->setChild(0, hidden.get());
    update(*neck);
    EXPECT_NEAR((label->getMatrix().getTrans() - osg::Vec3d(2, 3, 20 + 6 + 1)).length(), 0.0, 1e-4);
}

TEST_F(NameLabel, cancelsTheRotationOfTheBoneAboveTheHead)
{
    const osg::Matrixd turned =
        osg::Matrixd::rotate(0.7, osg::Vec3d(1, 0.3, 0)) * osg::Matrixd::translate(5, 6, 7);
    neck->setMatrixInSkeletonSpace(turned);
    update(*neck);
    const osg::Matrixd world = label->getMatrix() * turned;
    EXPECT_NEAR(world(0, 0), 1.0, 1e-9);
    EXPECT_NEAR(world(2, 2), 1.0, 1e-9);
    EXPECT_NEAR((world.getTrans() - osg::Vec3d(5 + 2, 6 + 3, 7 + 27)).length(), 0.0, 1e-4);
}

TEST_F(NameLabel, staysWhereItIsUnderAParentThatIsNoBone)
{
    osg::ref_ptr<osg::Group> group = new osg::Group;
    group->addChild(head);
    neck->removeChild(head);
    update(*group);
    EXPECT_EQ(label->getMatrix(), kBefore);
}

TEST_F(NameLabel, staysWhereItIsAboveAHeadWithoutExtent)
{
    head->removeChildren(0, head->getNumChildren());
    update(*neck);
    EXPECT_EQ(label->getMatrix(), kBefore);
}

TEST_F(NameLabel, staysWhereItIsOnceTheTextIsGone)
{
    text = nullptr;
    update(*neck);
    EXPECT_EQ(label->getMatrix(), kBefore);
}

TEST_F(NameLabel, doesNothingOnceItsTransformIsGone)
{
    label = nullptr;
    const osg::ref_ptr<CountingCallback> below = addCountedChild(*head);
    update(*neck);
    EXPECT_EQ(below->calls, 1);
}

TEST_F(NameLabel, doesNothingOnceItsAnchorIsGone)
{
    osg::ref_ptr<osg::Group> other = new osg::Group;
    other->addUpdateCallback(callback.get());
    neck->removeChild(head);
    head = nullptr;
    const osg::ref_ptr<CountingCallback> below = addCountedChild(*other);
    update(*other);
    EXPECT_EQ(below->calls, 1);
    EXPECT_EQ(label->getMatrix(), kBefore);
}

TEST_F(NameLabel, staysWhereItIsAboveAnAnchorWithoutParent)
{
    neck->removeChild(head);
    update(*head);
    EXPECT_EQ(label->getMatrix(), kBefore);
}

TEST_F(NameLabel, followsInTheUpdateTraversalOnly)
{
    osg::NodeVisitor other(osg::NodeVisitor::NODE_VISITOR);
    (*callback)(head.get(), &other);
    EXPECT_EQ(label->getMatrix(), kBefore);
}

TEST_F(NameLabel, letsTheTraversalGoOn)
{
    const osg::ref_ptr<CountingCallback> below = addCountedChild(*head);
    update(*neck);
    EXPECT_EQ(below->calls, 1);
}

}  // namespace
