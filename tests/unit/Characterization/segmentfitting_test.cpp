#include "KivCharacterization/Characterization/segmentfitting.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace KivCharacterization;

void expectNear(const osg::Vec3d& actual, const osg::Vec3d& expected, double tolerance = 1e-5)
{
    EXPECT_NEAR((actual - expected).length(), 0.0, tolerance)
        << actual.x() << " " << actual.y() << " " << actual.z();
}

BvhSegment skeletonSegment(const osg::Vec3f& offset)
{
    return {offset, offset.length()};
}

IveSegment avatarSegment(const osg::Vec3f& offset)
{
    return {offset.length(), offset};
}

TEST(SegmentAlignment, turnsTheAvatarsDirectionOntoTheSkeletons)
{
    osg::Matrixd matrix;
    alignToSegment(matrix, skeletonSegment({5, 0, 0}), avatarSegment({0, 3, 0}));
    // The avatar's up is the scene's up.
    expectNear(osg::Vec3d(0, 0, 1) * matrix, osg::Vec3d(1, 0, 0));
}

TEST(SegmentAlignment, takesComponentsUnderAThousandthAsZero)
{
    osg::Matrixd nearly, exactly;
    const BvhSegment skeleton = skeletonSegment({1, 1, 0});
    alignToSegment(nearly, skeleton, avatarSegment({0.0005f, 2, 0}));
    alignToSegment(exactly, skeleton, avatarSegment({0, 2, 0}));
    EXPECT_EQ(nearly, exactly);

    osg::Matrixd above;
    alignToSegment(above, skeleton, avatarSegment({0.0011f, 2, 0}));
    EXPECT_NE(above, exactly);
}

TEST(SegmentAlignment, keepsAComponentOfAThousandth)
{
    osg::Matrixd matrix;
    alignToSegment(matrix, skeletonSegment({0, 0, 5}), avatarSegment({0.001f, 0, 0}));
    expectNear(osg::Vec3d(1, 0, 0) * matrix, osg::Vec3d(0, 0, 1));
}

TEST(SegmentAlignment, turnsHalfwayRoundWhereTheDirectionsAreOpposite)
{
    osg::Matrixd matrix;
    alignToSegment(matrix, skeletonSegment({0, 0, -4}), avatarSegment({0, 4, 0}));
    expectNear(osg::Vec3d(0, 0, 1) * matrix, osg::Vec3d(0, 0, -1));
}

TEST(SegmentStretch, scalesByTheLengthsAndMovesHalfTheSegment)
{
    osg::Matrixd matrix;
    stretchToSegment(matrix, skeletonSegment({0, 0, -6}), avatarSegment({0, 4, 0}));
    expectNear(osg::Vec3d(0, 0, 0) * matrix, osg::Vec3d(0, 0, -3));
    expectNear(osg::Vec3d(2, 0, 0) * matrix, osg::Vec3d(3, 0, -3));
}

TEST(SegmentStretch, appliesAZeroLengthAsItIs)
{
    osg::Matrixd flat;
    stretchToSegment(flat, skeletonSegment({0, 0, 0}), avatarSegment({0, 4, 0}));
    expectNear(osg::Vec3d(2, 3, 4) * flat, osg::Vec3d(0, 0, 0));

    osg::Matrixd infinite;
    stretchToSegment(infinite, skeletonSegment({0, 0, 4}), avatarSegment({0, 0, 0}));
    EXPECT_FALSE(std::isfinite(infinite(0, 0)));
}

TEST(HipRatioOf, twoFiguresIsTheQuotientOfTheirHipWidths)
{
    BvhSegmentMap skeleton = {{"Hips&LeftUpLeg", skeletonSegment({6, 1, -2})},
                              {"Hips&RightUpLeg", skeletonSegment({-6, 1, -2})}};
    IveSegmentMap avatar = {{"Hips&LeftUpLeg", avatarSegment({9, -3, 0})},
                            {"Hips&RightUpLeg", avatarSegment({-9, -3, 0})}};
    EXPECT_FLOAT_EQ(hipRatio(skeleton, avatar), 12.0f / 18.0f);
}

TEST(HipRatioOf, aFigureWithoutLegsTakesZeroOffsetsAndEntersThem)
{
    BvhSegmentMap skeleton;
    IveSegmentMap avatar = {{"Hips&LeftUpLeg", avatarSegment({9, 0, 0})}};
    EXPECT_FLOAT_EQ(hipRatio(skeleton, avatar), 0.0f);
    EXPECT_EQ(skeleton.size(), 2u);
    EXPECT_EQ(avatar.size(), 2u);
    IveSegmentMap legless;
    EXPECT_TRUE(std::isnan(hipRatio(skeleton, legless)));
}

TEST(HandRatioOf, twoFiguresIsTheQuotientOfTheirLeftRingMetacarpals)
{
    // The stored lengths do not count: they are taken from the offsets.
    BvhSegmentMap skeleton = {{"LeftInHandRing&LeftHandRing1", {osg::Vec3f(3, 0, 4), 99.0f}},
                              {"RightInHandRing&RightHandRing1", skeletonSegment({7, 7, 7})}};
    IveSegmentMap avatar = {{"LeftInHandRing&LeftHandRing1", {42.0f, osg::Vec3f(0, 10, 0)}}};
    EXPECT_FLOAT_EQ(handRatio(skeleton, avatar), 0.5f);
}

}  // namespace
