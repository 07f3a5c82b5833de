#include "KivCharacterization/Characterization/piecetransform.h"

#include <gtest/gtest.h>
#include <osg/Geode>
#include <osg/NodeCallback>
#include <osg/ShapeDrawable>

namespace KivCharacterization {

namespace {

TEST(APieceTransform, standsBelowItsParentAndNowhereElse)
{
    osg::ref_ptr<PieceTransform> parent = new PieceTransform;
    parent->addChild(new osg::Group);
    const osg::ref_ptr<PieceTransform> child = new PieceTransform(*parent, osg::Matrixd::translate(1, 2, 3));
    ASSERT_EQ(parent->getNumChildren(), 2U);
    EXPECT_EQ(parent->getChild(1), child.get());
    ASSERT_EQ(child->getNumParents(), 1U);
    EXPECT_EQ(child->getParent(0), parent.get());
    EXPECT_EQ(child->getMatrix(), osg::Matrixd::translate(1, 2, 3));
}

TEST(APieceTransform, livesAsLongAsItsParentHoldsIt)
{
    osg::ref_ptr<PieceTransform> parent = new PieceTransform;
    auto* child = new PieceTransform(*parent, osg::Matrixd());
    EXPECT_EQ(child->referenceCount(), 1);
    const osg::ref_ptr<PieceTransform> held = child;
    parent = nullptr;
    EXPECT_EQ(held->getNumParents(), 0U);
}

TEST(APieceTransform, tellsThoseAboveOfWhatIsHungBelowItLater)
{
    const osg::ref_ptr<PieceTransform> wrapper = new PieceTransform;
    const osg::ref_ptr<PieceTransform> holder = new PieceTransform(*wrapper, osg::Matrixd());
    EXPECT_EQ(wrapper->getNumChildrenRequiringUpdateTraversal(), 0U);
    osg::ref_ptr<osg::Group> piece = new osg::Group;
    piece->setUpdateCallback(new osg::NodeCallback);
    piece->setCullingActive(false);
    holder->addChild(piece.get());
    EXPECT_EQ(wrapper->getNumChildrenRequiringUpdateTraversal(), 1U);
    EXPECT_EQ(wrapper->getNumChildrenWithCullingDisabled(), 1U);
}

TEST(APieceTransform, growsTheBoundOfAParentWhoseBoundIsKnown)
{
    const osg::ref_ptr<PieceTransform> parent = new PieceTransform;
    EXPECT_FALSE(parent->getBound().valid());
    osg::ref_ptr<PieceTransform> child = new PieceTransform(*parent, osg::Matrixd::translate(5, 0, 0));
    child->addChild(new osg::ShapeDrawable(new osg::Sphere(osg::Vec3(), 1)));
    EXPECT_EQ(parent->getBound().center(), osg::Vec3(5, 0, 0));
}

TEST(APieceTransform, isAMatrixTransformToWhoeverWritesOrCopiesIt)
{
    const osg::ref_ptr<PieceTransform> transform = new PieceTransform;
    EXPECT_STREQ(transform->libraryName(), "osg");
    EXPECT_STREQ(transform->className(), "MatrixTransform");
    const osg::ref_ptr<osg::Object> copy = transform->clone(osg::CopyOp::SHALLOW_COPY);
    EXPECT_EQ(typeid(*copy), typeid(osg::MatrixTransform));
}

}  // namespace

}  // namespace KivCharacterization
