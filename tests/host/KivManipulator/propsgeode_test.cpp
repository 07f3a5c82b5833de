#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <set>

#include "tests/host/KivManipulator/propsstage.h"

using namespace KivTestSupport;
using KivManipulator::PropsGeode;

namespace {

std::array<double, 16> numbersOf(const osg::Matrixd& matrix)
{
    std::array<double, 16> numbers;
    std::copy(matrix.ptr(), matrix.ptr() + 16, numbers.begin());
    return numbers;
}

const osg::Matrixd kSomePose = osg::Matrixd::scale(1.5, 0.5, 4.0) * osg::Matrixd::rotate(0.3, 0.0, 1.0, 0.0) *
                               osg::Matrixd::translate(7.0, -8.0, 9.0);

unsigned int shownDraggers(const osg::Group& geode)
{
    unsigned int shown = 0;
    for (unsigned int i = 0; i < geode.getNumChildren(); ++i)
        shown += geode.getChild(i)->getNodeMask() != 0 ? 1 : 0;
    return shown;
}

/// Every drawable below a node, once.
std::set<const osg::Drawable*> drawablesBelow(osg::Node& node)
{
    std::set<const osg::Drawable*> found;
    if (const osg::Drawable* drawable = node.asDrawable())
        found.insert(drawable);
    if (osg::Group* group = node.asGroup()) {
        for (unsigned int i = 0; i < group->getNumChildren(); ++i)
            found.merge(drawablesBelow(*group->getChild(i)));
    }
    return found;
}

}  // namespace

TEST(PropsGeode, refusesNumbersThatAreNotFiniteAndKeepsThePose)
{
    PropsStage stage;
    ASSERT_TRUE(stage.geode->SetPropsGemoetryMat(kSomePose.ptr()));
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        for (std::size_t i = 0; i < 16; ++i) {
            std::array<double, 16> numbers = numbersOf(osg::Matrixd());
            numbers[i] = bad;
            EXPECT_FALSE(stage.geode->SetPropsGemoetryMat(numbers.data())) << i;
        }
    }
    EXPECT_FALSE(stage.geode->SetPropsGemoetryMat(nullptr));
    EXPECT_EQ(numbersOf(stage.props->getMatrix()), numbersOf(kSomePose));
}

TEST(PropsGeode, hasNothingToMoveOrShowWithoutATransform)
{
    osg::ref_ptr<PropsGeode> geode = new PropsGeode("", nullptr, osg::Vec3f(), nullptr);
    EXPECT_FALSE(geode->SetDefaultDragger());
    EXPECT_FALSE(geode->ShowPropsDragger(true));
    EXPECT_FALSE(geode->ShowContactPointDragger(true));
    EXPECT_FALSE(geode->SetPropsGemoetryMat(kSomePose.ptr()));
    EXPECT_EQ(geode->getPropsGeometryMat(), osg::Matrixd());
    EXPECT_FALSE(geode->cancelDrag());
    EXPECT_FALSE(geode->finishDrag());
    EXPECT_EQ(geode->getPropsName(), "");
    EXPECT_EQ(geode->getNotify(), nullptr);
}

TEST(PropsGeode, outlivesItsTransform)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.wrapper->removeChild(stage.props);
    stage.props = nullptr;
    stage.frame();
    EXPECT_FALSE(stage.geode->SetPropsGemoetryMat(kSomePose.ptr()));
    EXPECT_TRUE(stage.geode->ShowPropsDragger(true));
}

TEST(PropsGeode, refusesABoneThatIsNoneAndMatricesThatAreNotFinite)
{
    PropsStage stage;
    osg::Matrixd bad;
    bad(1, 1) = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(stage.geode->SetInitalBoneAndMatrix(nullptr, osg::Matrixd(), osg::Matrixd()));
    EXPECT_FALSE(stage.geode->SetInitalBoneAndMatrix(stage.bone, bad, osg::Matrixd()));
    EXPECT_FALSE(stage.geode->SetInitalBoneAndMatrix(stage.bone, osg::Matrixd(), bad));
    EXPECT_EQ(stage.geode->getInitialBone(), nullptr);
}

TEST(PropsGeode, refusesAContactPointOnAFlatPropsOrNotFinite)
{
    PropsStage stage;
    EXPECT_FALSE(stage.geode->setContactPoint({std::numeric_limits<float>::infinity(), 0.0f, 0.0f}));
    ASSERT_TRUE(stage.geode->SetPropsGemoetryMat(osg::Matrixd::scale(1.0, 0.0, 1.0).ptr()));
    EXPECT_FALSE(stage.geode->setContactPoint({1.0f, 1.0f, 1.0f}));
}

TEST(PropsGeode, showsDraggersForPropsOfAnyShape)
{
    for (const osg::Matrixd& pose :
         {osg::Matrixd::scale(0.0, 0.0, 0.0), osg::Matrixd::scale(1e200, 1e200, 1e200),
          osg::Matrixd::scale(-1.0, 1.0, 1.0), osg::Matrixd::scale(1e308, 1.0, 1e-300)}) {
        PropsStage stage;
        EXPECT_TRUE(stage.geode->SetPropsGemoetryMat(pose.ptr()));
        EXPECT_TRUE(stage.geode->ShowPropsDragger(true));
        EXPECT_TRUE(stage.geode->ShowContactPointDragger(true));
        stage.frame();
        EXPECT_TRUE(stage.geode->getBound().valid());
    }
}

TEST(PropsGeode, buildsItsDraggersOnce)
{
    PropsStage stage;
    EXPECT_EQ(stage.geode->getNumChildren(), 2u);
    EXPECT_FALSE(stage.geode->SetDefaultDragger());
    EXPECT_EQ(stage.geode->getNumChildren(), 2u);
}

TEST(PropsGeode, buildsTheShapeThatHandlesHaveInCommonOnce)
{
    // Rings, arrows and a ball to turn, to move and to take hold of; arrows and a ball at the contact point.
    // What is seen and what can be grabbed differ; the ball inside the props is not seen.
    PropsStage stage;
    EXPECT_EQ(drawablesBelow(*stage.geode).size(), 2u + 2u + 1u + 2u + 2u);
}

TEST(PropsGeode, givesBackTheSixteenNumbersAsTheyCame)
{
    PropsStage stage;
    std::array<double, 16> numbers;
    for (std::size_t i = 0; i < 16; ++i)
        numbers[i] = 1.0 / (3.0 + static_cast<double>(i));
    ASSERT_TRUE(stage.geode->SetPropsGemoetryMat(numbers.data()));
    EXPECT_EQ(numbersOf(stage.geode->getPropsGeometryMat()), numbers);
    EXPECT_EQ(numbersOf(stage.props->getMatrix()), numbers);
    EXPECT_TRUE(stage.sink.reports.empty());
}

TEST(PropsGeode, hidesBothDraggersUntilEachIsShown)
{
    PropsStage stage;
    EXPECT_FALSE(stage.geode->isPropsDraggerShown());
    EXPECT_FALSE(stage.geode->isContactPointDraggerShown());
    EXPECT_TRUE(stage.geode->ShowContactPointDragger(true));
    EXPECT_TRUE(stage.geode->isContactPointDraggerShown());
    EXPECT_FALSE(stage.geode->isPropsDraggerShown());
    EXPECT_TRUE(stage.geode->ShowPropsDragger(true));
    EXPECT_TRUE(stage.geode->ShowContactPointDragger(false));
    EXPECT_TRUE(stage.geode->isPropsDraggerShown());
    EXPECT_FALSE(stage.geode->isContactPointDraggerShown());
}

TEST(PropsGeode, costsNothingWhileHidden)
{
    PropsStage stage;
    EXPECT_EQ(stage.scene->getNumChildrenRequiringEventTraversal(), 0u);
    EXPECT_EQ(shownDraggers(*stage.geode), 0u);
    EXPECT_FALSE(stage.geode->getBound().valid());
    stage.geode->ShowPropsDragger(true);
    EXPECT_EQ(stage.scene->getNumChildrenRequiringEventTraversal(), 1u);
    EXPECT_EQ(shownDraggers(*stage.geode), 1u);
    EXPECT_TRUE(stage.geode->getBound().valid());
    stage.geode->ShowPropsDragger(false);
    EXPECT_EQ(stage.scene->getNumChildrenRequiringEventTraversal(), 0u);
    EXPECT_FALSE(stage.geode->getBound().valid());
}

TEST(PropsGeode, takesNoEventsTwiceAfterBeingShownTwice)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.geode->ShowPropsDragger(true);
    stage.geode->ShowPropsDragger(false);
    EXPECT_EQ(stage.scene->getNumChildrenRequiringEventTraversal(), 0u);
}

TEST(PropsGeode, sizesItsDraggerToThePropsAsItIsWhenShown)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    const float small = stage.geode->getBound().radius();
    EXPECT_GT(small, 1.5f * 6.0f);
    EXPECT_LT(small, 4.0f * 6.0f);
    stage.props->removeChildren(0, 1);
    stage.props->addChild(PropsStage::makeBall(18.0f));
    stage.geode->ShowPropsDragger(true);
    EXPECT_NEAR(stage.geode->getBound().radius() / small, 3.0f, 0.01f);
}

TEST(PropsGeode, growsItsDraggerWithAStretchedProps)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    const float small = stage.geode->getBound().radius();
    stage.geode->SetPropsGemoetryMat(
        (osg::Matrixd::scale(1.0, 3.0, 1.0) * osg::Matrixd::rotate(1.0, 1.0, 1.0, 0.0)).ptr());
    EXPECT_NEAR(stage.geode->getBound().radius() / small, 3.0f, 0.2f);
}

TEST(PropsGeode, keepsItsDraggerOnThePropsWhenTheMatrixChanges)
{
    PropsStage stage;
    stage.geode->ShowPropsDragger(true);
    stage.geode->SetPropsGemoetryMat(osg::Matrixd::translate(30.0, 0.0, 0.0).ptr());
    EXPECT_NEAR(stage.geode->getBound().center().x(), 30.0f, 0.5f);
    // By somebody who does not ask the geode.
    stage.props->setMatrix(osg::Matrixd::translate(-30.0, 0.0, 0.0));
    stage.frame();
    EXPECT_NEAR(stage.geode->getBound().center().x(), -30.0f, 0.5f);
}

TEST(PropsGeode, isNamedAfterTheBoneItWasTiedToOrTheNearestOneAbove)
{
    PropsStage stage;
    EXPECT_EQ(stage.geode->getPropsName(), "7#RightProps");
    osg::ref_ptr<osg::MatrixTransform> other = new osg::MatrixTransform;
    other->setName("8#LeftProps");
    ASSERT_TRUE(stage.geode->SetInitalBoneAndMatrix(other, kSomePose, osg::Matrixd()));
    EXPECT_EQ(stage.geode->getPropsName(), "8#LeftProps");
    EXPECT_EQ(stage.geode->getInitialBone(), other.get());
    EXPECT_EQ(stage.geode->getInitialBoneMatrix(), kSomePose);
    other = nullptr;
    EXPECT_EQ(stage.geode->getInitialBone(), nullptr);
    EXPECT_EQ(stage.geode->getPropsName(), "7#RightProps");
}

TEST(PropsGeode, remembersWhatItWasBuiltWith)
{
    PropsStage stage;
    EXPECT_EQ(stage.geode->getActorName(), "Actor");
    EXPECT_EQ(stage.geode->getPropsPosition(), osg::Vec3f(1.0f, 2.0f, 3.0f));
    EXPECT_EQ(stage.geode->getNotify(), &stage.sink);
}

TEST(PropsGeode, carriesItsContactPointWithTheProps)
{
    PropsStage stage;
    EXPECT_EQ(stage.geode->getContactPoint(), osg::Vec3f());
    ASSERT_TRUE(stage.geode->setContactPoint({0.0f, 0.0f, 5.0f}));
    stage.geode->SetPropsGemoetryMat(osg::Matrixd::translate(10.0, 0.0, 0.0).ptr());
    EXPECT_LT((stage.geode->getContactPoint() - osg::Vec3f(10.0f, 0.0f, 5.0f)).length(), 1e-4f);
    EXPECT_TRUE(stage.sink.reports.empty());
}
