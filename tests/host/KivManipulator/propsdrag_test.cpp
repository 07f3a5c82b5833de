#include <gtest/gtest.h>

#include <cmath>

#include "tests/host/KivManipulator/propsstage.h"

using namespace KivTestSupport;

namespace {

// On the handles of a ball of radius 6, in the bone's frame.
const osg::Vec3d kUpArrow(0.0, 0.0, 10.2);
const osg::Vec3d kSideArrow(0.0, 10.2, 0.0);
const osg::Vec3d kContactUpArrow(0.0, 0.0, 3.0);
constexpr double kRing = 7.68;
const osg::Vec3d kDiagonal(0.0, kRing* std::sqrt(0.5), kRing* std::sqrt(0.5));

osg::Vec3d up(double by)
{
    return {0.0, 0.0, by};
}

/// Press, one move and release: what moved is what the pointer did in the plane that faces the camera.
void dragBy(PropsStage& stage, const osg::Vec3d& grabbed, const osg::Vec3d& by)
{
    stage.press(stage.inScene(grabbed));
    stage.drag(stage.inScene(grabbed + by));
    stage.release(stage.inScene(grabbed + by));
}

/// By the ring that faces the camera, which looks along the bone's x: from one diagonal to the next axis.
void turnByAnEighth(PropsStage& stage, const osg::Vec3d& middle = {})
{
    dragBy(stage, middle + kDiagonal, up(kRing) - kDiagonal);
}

osg::Vec3d propsPlace(const PropsStage& stage)
{
    return stage.props->getMatrix().getTrans();
}

void expectNear(const osg::Vec3d& actual, const osg::Vec3d& expected, double tolerance)
{
    EXPECT_LT((actual - expected).length(), tolerance)
        << actual.x() << ' ' << actual.y() << ' ' << actual.z() << " is not " << expected.x() << ' '
        << expected.y() << ' ' << expected.z();
}

}  // namespace

TEST(PropsDrag, leavesThePropsAloneWhileTheDraggerIsHidden)
{
    PropsStage stage;
    dragBy(stage, kUpArrow, up(5.0));
    stage.geode->ShowPropsDragger(true);
    stage.geode->ShowPropsDragger(false);
    dragBy(stage, kUpArrow, up(5.0));
    EXPECT_EQ(stage.props->getMatrix(), osg::Matrixd());
    EXPECT_EQ(stage.sink.letters(), "");
}

TEST(PropsDrag, leavesThePropsAloneWhenThePointerMissesTheDragger)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    dragBy(stage, {0.0, -4.65, 4.65}, up(5.0));
    dragBy(stage, {0.0, -18.0, 18.0}, up(5.0));
    EXPECT_EQ(stage.sink.letters(), "");
    EXPECT_EQ(propsPlace(stage), osg::Vec3d());
}

TEST(PropsDrag, startsWithTheLeftButtonOnly)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    for (const int button : {2, 3}) {
        stage.press(stage.inScene(kUpArrow), button);
        stage.drag(stage.inScene(kUpArrow + up(5.0)));
        stage.release(stage.inScene(kUpArrow + up(5.0)), button);
    }
    EXPECT_EQ(stage.sink.letters(), "");
}

TEST(PropsDrag, cancelsOnlyWhatIsInProgress)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.key(osgGA::GUIEventAdapter::KEY_Escape);
    EXPECT_FALSE(stage.geode->cancelDrag());
    EXPECT_FALSE(stage.geode->finishDrag());
    EXPECT_EQ(stage.sink.letters(), "");
}

TEST(PropsDrag, leavesAnArrowThatPointsAtTheEyeToTheHandlesBehindIt)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.lookFrom({100.0, 100.0, 50.0});
    dragBy(stage, osg::Vec3d(10.2, 0.0, 0.0), {0.0, 2.0, 3.0});
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
    EXPECT_NEAR(propsPlace(stage).x(), 0.0, 1e-6);
    EXPECT_NE(stage.props->getMatrix(), osg::Matrixd());
}

TEST(PropsDrag, movesThePropsFreelyBeforeTheEyeWhenItIsGrabbedItself)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    dragBy(stage, {0.0, -2.0, 2.0}, {0.0, 3.0, 5.0});
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
    expectNear(propsPlace(stage), {0.0, 3.0, 5.0}, 0.4);
}

TEST(PropsDrag, saysWhereItsArrowsCanBeGrabbed)
{
    PropsStage stage;
    EXPECT_TRUE(stage.geode->getPropsDraggerHandles().empty());
    EXPECT_TRUE(stage.geode->getContactPointDraggerHandles().empty());
    stage.geode->ShowPropsDragger(true);
    ASSERT_EQ(stage.geode->getPropsDraggerHandles().size(), 3u);
    dragBy(stage, stage.geode->getPropsDraggerHandles()[1], {0.0, 4.0, 0.0});
    expectNear(propsPlace(stage), {0.0, 4.0, 0.0}, 0.02);
    stage.geode->ShowPropsDragger(false);
    stage.geode->ShowContactPointDragger(true);
    ASSERT_EQ(stage.geode->getContactPointDraggerHandles().size(), 3u);
    dragBy(stage, stage.geode->getContactPointDraggerHandles()[2], up(4.0));
    expectNear(stage.geode->getContactPoint(), {0.0, 4.0, 4.0}, 0.03);
}

TEST(PropsDrag, movesThePropsAlongTheArrow)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    dragBy(stage, kUpArrow, up(5.0));
    expectNear(propsPlace(stage), up(5.0), 0.02);
}

TEST(PropsDrag, movesThePropsSidewaysInTheBonesFrame)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    dragBy(stage, kSideArrow, {0.0, 4.0, 0.0});
    expectNear(propsPlace(stage), {0.0, 4.0, 0.0}, 0.02);
}

TEST(PropsDrag, keepsToTheArrowWhenThePointerStrays)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    dragBy(stage, kUpArrow, {0.0, 6.0, 5.0});
    expectNear(propsPlace(stage), up(5.0), 0.3);
    EXPECT_DOUBLE_EQ(propsPlace(stage).x(), 0.0);
    EXPECT_NEAR(propsPlace(stage).y(), 0.0, 1e-9);
}

TEST(PropsDrag, reportsStartMovesAndEndInOrderUnderTheBonesFullName)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.press(stage.inScene(kUpArrow));
    EXPECT_EQ(stage.sink.letters(), "S");
    EXPECT_TRUE(stage.geode->isDragging());
    stage.drag(stage.inScene(kUpArrow + up(2.0)));
    stage.drag(stage.inScene(kUpArrow + up(5.0)));
    EXPECT_EQ(stage.sink.letters(), "SPRPR");
    stage.release(stage.inScene(kUpArrow + up(5.0)));
    EXPECT_EQ(stage.sink.letters(), "SPRPRPRE");
    EXPECT_FALSE(stage.geode->isDragging());
    for (const RecordingSink::Report& report : stage.sink.reports)
        EXPECT_EQ(report.name, "7#RightProps");
    expectNear(stage.sink.last<Vectors>().position, propsPlace(stage), 1e-5);
    expectNear(stage.sink.last<Vectors>().contactPoint, propsPlace(stage), 1e-5);
    expectNear(stage.sink.last<Values>().scale, {1.0, 1.0, 1.0}, 1e-6);
}

TEST(PropsDrag, reportsTheSecondDragLikeTheFirst)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    dragBy(stage, kUpArrow, up(5.0));
    dragBy(stage, kUpArrow + up(5.0), up(-3.0));
    EXPECT_EQ(stage.sink.letters(), "SPRPRESPRPRE");
    expectNear(propsPlace(stage), up(2.0), 0.03);
}

TEST(PropsDrag, turnsThePropsWithTheRingThatFacesTheCamera)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    turnByAnEighth(stage);
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
    expectNear(stage.sink.last<Values>().rotation * kDiagonal, up(kRing), 0.1);
    expectNear(propsPlace(stage), osg::Vec3d(), 1e-6);
}

TEST(PropsDrag, turnsThePropsWithARingSeenEdgeOn)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    // The ring about the upright axis, seen as a line: its near side follows the pointer to the right, away
    // from the crossing with the ring beside it.
    const double angle = 0.5;
    const osg::Vec3d grabbed(-kRing * std::cos(angle), kRing * std::sin(angle), 0.0);
    const double arc = 0.3;
    const osg::Vec3d tangent(std::sin(angle), std::cos(angle), 0.0);
    stage.press(stage.inScene(grabbed));
    stage.drag(stage.inScene(grabbed - tangent * (kRing * arc)));
    stage.release(stage.inScene(grabbed - tangent * (kRing * arc)));
    const osg::Quat rotation = stage.sink.last<Values>().rotation;
    expectNear(rotation * osg::Vec3d(1.0, 0.0, 0.0), {std::cos(arc), std::sin(arc), 0.0}, 0.02);
}

TEST(PropsDrag, turnsAPropsAboutItsOwnMiddle)
{
    PropsStage stage;
    osg::ref_ptr<osg::MatrixTransform> off = new osg::MatrixTransform(osg::Matrixd::translate(0.0, 0.0, 8.0));
    off->addChild(PropsStage::makeBall(6.0f));
    stage.props->removeChildren(0, 1);
    stage.props->addChild(off);
    stage.geode->ShowPropsDragger(true);
    turnByAnEighth(stage, up(8.0));
    ASSERT_EQ(stage.sink.letters(), "SPRPRE");
    expectNear(up(8.0) * stage.props->getMatrix(), up(8.0), 1e-6);
    EXPECT_GT(propsPlace(stage).length(), 1.0);
}

TEST(PropsDrag, keepsAStretchedPropsInShape)
{
    PropsStage stage;
    stage.geode->SetPropsGemoetryMat(osg::Matrixd::scale(0.5, 1.0, 0.8).ptr());
    stage.geode->ShowPropsDragger(true);
    turnByAnEighth(stage);
    ASSERT_EQ(stage.sink.letters(), "SPRPRE");
    expectNear(stage.sink.last<Values>().scale, {0.5, 1.0, 0.8}, 1e-5);
}

TEST(PropsDrag, meetsTheDraggerThroughWhateverStandsBeforeIt)
{
    PropsStage stage;
    osg::ref_ptr<osg::MatrixTransform> wall =
        new osg::MatrixTransform(osg::Matrixd::translate(100.0, -40.0, 50.0));
    wall->addChild(PropsStage::makeBall(25.0f));
    stage.scene->addChild(wall);
    stage.geode->ShowPropsDragger(true);
    dragBy(stage, kUpArrow, up(5.0));
    expectNear(propsPlace(stage), up(5.0), 0.02);
}

TEST(PropsDrag, worksInAWindowWhoseMouseHasARangeOfItsOwn)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    // What a window gives whose host set no range: the pointer's place over the camera still counts.
    stage.queue().setMouseInputRange(0.0f, 0.0f, 2.0f * PropsStage::kWidth, 2.0f * PropsStage::kHeight);
    turnByAnEighth(stage);
    ASSERT_EQ(stage.sink.letters(), "SPRPRE");
    expectNear(stage.sink.last<Values>().rotation * kDiagonal, up(kRing), 0.1);
}

TEST(PropsDrag, takesThePoseBackOnEscapeAndReportsIt)
{
    PropsStage stage;
    const osg::Matrixd start = osg::Matrixd::translate(0.0, 0.0, 1.0);
    stage.geode->SetPropsGemoetryMat(start.ptr());
    stage.geode->ShowPropsDragger(true);
    stage.press(stage.inScene(kUpArrow + up(1.0)));
    stage.drag(stage.inScene(kUpArrow + up(6.0)));
    ASSERT_NEAR(propsPlace(stage).z(), 6.0, 0.03);
    stage.key(osgGA::GUIEventAdapter::KEY_Escape);
    EXPECT_EQ(stage.props->getMatrix(), start);
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
    expectNear(stage.sink.last<Vectors>().position, up(1.0), 1e-6);
    // What the pointer does until the button is let go concerns nobody.
    stage.drag(stage.inScene(kUpArrow + up(9.0)));
    stage.release(stage.inScene(kUpArrow + up(9.0)));
    EXPECT_EQ(stage.props->getMatrix(), start);
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
}

TEST(PropsDrag, startsAnewAfterACancelledDrag)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.press(stage.inScene(kUpArrow));
    stage.drag(stage.inScene(kUpArrow + up(5.0)));
    EXPECT_TRUE(stage.geode->cancelDrag());
    EXPECT_FALSE(stage.geode->cancelDrag());
    stage.release(stage.inScene(kUpArrow + up(5.0)));
    dragBy(stage, kUpArrow, up(3.0));
    EXPECT_EQ(stage.sink.letters(), "SPRPRESPRPRE");
    expectNear(propsPlace(stage), up(3.0), 0.02);
}

TEST(PropsDrag, keepsThePoseWhenTheDraggerIsHiddenUnderThePointer)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.press(stage.inScene(kUpArrow));
    stage.drag(stage.inScene(kUpArrow + up(5.0)));
    stage.geode->ShowPropsDragger(false);
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
    stage.drag(stage.inScene(kUpArrow + up(9.0)));
    expectNear(propsPlace(stage), up(5.0), 0.02);
}

TEST(PropsDrag, endsWhenTheReleaseWentToAnotherWindow)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.press(stage.inScene(kUpArrow));
    stage.drag(stage.inScene(kUpArrow + up(5.0)));
    stage.queue().getCurrentEventState()->setButtonMask(0);
    stage.drag(stage.inScene(kUpArrow + up(9.0)));
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
    expectNear(propsPlace(stage), up(5.0), 0.02);
}

TEST(PropsDrag, endsWhenTheWindowCloses)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.press(stage.inScene(kUpArrow));
    stage.drag(stage.inScene(kUpArrow + up(5.0)));
    stage.viewer.setQuitEventSetsDone(false);
    stage.queue().quitApplication();
    stage.frame();
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
}

TEST(PropsDrag, endsBeforeAMatrixIsSet)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.press(stage.inScene(kUpArrow));
    stage.drag(stage.inScene(kUpArrow + up(5.0)));
    const osg::Matrixd given = osg::Matrixd::translate(1.0, 2.0, 3.0);
    stage.geode->SetPropsGemoetryMat(given.ptr());
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
    stage.drag(stage.inScene(kUpArrow + up(9.0)));
    EXPECT_EQ(stage.props->getMatrix(), given);
}

TEST(PropsDrag, keepsTheCameraFromTakingTheDrag)
{
    struct Watcher : osgGA::GUIEventHandler
    {
        bool handle(const osgGA::GUIEventAdapter& ea, osgGA::GUIActionAdapter&) override
        {
            free += ea.getEventType() != osgGA::GUIEventAdapter::FRAME && !ea.getHandled() ? 1 : 0;
            return false;
        }
        int free = 0;
    };
    PropsStage stage;
    osg::ref_ptr<Watcher> watcher = new Watcher;
    stage.viewer.addEventHandler(watcher);
    dragBy(stage, kUpArrow, up(5.0));
    EXPECT_EQ(watcher->free, 3);
    stage.geode->ShowPropsDragger(true);
    watcher->free = 0;
    dragBy(stage, kUpArrow, up(5.0));
    EXPECT_EQ(watcher->free, 0);
    stage.press(stage.inScene(kUpArrow + up(5.0)));
    stage.key(osgGA::GUIEventAdapter::KEY_Escape);
    EXPECT_EQ(watcher->free, 0);
    stage.key(osgGA::GUIEventAdapter::KEY_Escape);
    EXPECT_EQ(watcher->free, 2);
}

TEST(PropsDrag, movesTheContactPointAndNotTheProps)
{
    PropsStage stage;
    stage.geode->ShowContactPointDragger(true);
    dragBy(stage, kContactUpArrow, up(4.0));
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
    EXPECT_EQ(stage.props->getMatrix(), osg::Matrixd());
    expectNear(stage.geode->getContactPoint(), up(4.0), 0.02);
    expectNear(stage.sink.last<Vectors>().contactPoint, up(4.0), 0.02);
    expectNear(stage.sink.last<Vectors>().position, osg::Vec3d(), 1e-6);
}

TEST(PropsDrag, movesTheContactPointFreelyByItsBall)
{
    PropsStage stage;
    stage.geode->ShowContactPointDragger(true);
    dragBy(stage, osg::Vec3d(), {0.0, -3.0, 2.0});
    expectNear(stage.geode->getContactPoint(), {0.0, -3.0, 2.0}, 0.02);
}

TEST(PropsDrag, takesTheContactPointBackOnEscape)
{
    PropsStage stage;
    stage.geode->ShowContactPointDragger(true);
    stage.press(stage.inScene(kContactUpArrow));
    stage.drag(stage.inScene(kContactUpArrow + up(4.0)));
    ASSERT_GT(stage.geode->getContactPoint().z(), 3.0f);
    stage.key(osgGA::GUIEventAdapter::KEY_Escape);
    expectNear(stage.geode->getContactPoint(), osg::Vec3d(), 1e-6);
    EXPECT_EQ(stage.sink.letters(), "SPRPRE");
}

TEST(PropsDrag, carriesTheContactPointAndItsDraggerAlong)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.geode->ShowContactPointDragger(true);
    dragBy(stage, kUpArrow, up(5.0));
    expectNear(stage.geode->getContactPoint(), up(5.0), 0.02);
    dragBy(stage, kContactUpArrow + up(5.0), up(1.0));
    expectNear(stage.geode->getContactPoint(), up(6.0), 0.04);
    expectNear(propsPlace(stage), up(5.0), 0.02);
}

TEST(PropsDrag, keepsThePoseInTheBonesFrameWhilePlaybackMovesTheBone)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.press(stage.inScene(kUpArrow));
    stage.drag(stage.inScene(kUpArrow + up(5.0)));
    const osg::Vec3d before = propsPlace(stage);
    const osg::Vec3d pointer = stage.inScene(kUpArrow + up(5.0));
    stage.bone->setMatrix(stage.bone->getMatrix() * osg::Matrixd::translate(20.0, 0.0, 0.0));
    stage.drag(pointer);
    expectNear(propsPlace(stage), before, 1e-3);
    stage.release(pointer);
    const osg::Matrixd pose = stage.props->getMatrix();
    stage.bone->setMatrix(osg::Matrixd::rotate(1.0, 0.0, 1.0, 0.0));
    stage.frame();
    EXPECT_EQ(stage.props->getMatrix(), pose);
}

TEST(PropsDrag, worksWithoutASink)
{
    PropsStage stage;
    stage.wrapper->removeChild(stage.geode);
    stage.geode = new KivManipulator::PropsGeode("", stage.props, osg::Vec3f(), nullptr);
    stage.wrapper->addChild(stage.geode);
    stage.geode->SetDefaultDragger();
    stage.geode->ShowPropsDragger(true);
    dragBy(stage, kUpArrow, up(5.0));
    expectNear(propsPlace(stage), up(5.0), 0.02);
}
