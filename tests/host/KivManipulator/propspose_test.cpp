#include "host/KivManipulator/propspose.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using KivManipulator::isFinite;
using KivManipulator::poseOf;
using KivManipulator::PropsPose;

namespace {

void expectPoint(const osg::Vec3d& actual, const osg::Vec3d& expected, double tolerance = 1e-9)
{
    EXPECT_LT((actual - expected).length(), tolerance)
        << actual.x() << ' ' << actual.y() << ' ' << actual.z() << " is not " << expected.x() << ' '
        << expected.y() << ' ' << expected.z();
}

bool isPose(const PropsPose& pose)
{
    return std::isfinite(pose.position.length2()) && std::isfinite(pose.scale.length2()) &&
           std::abs(pose.rotation.length() - 1.0) < 1e-6;
}

}  // namespace

TEST(PropsPose, callsAMatrixWithOneBadNumberNotFinite)
{
    for (int i = 0; i < 16; ++i) {
        osg::Matrixd matrix;
        matrix.ptr()[i] = std::numeric_limits<double>::quiet_NaN();
        EXPECT_FALSE(isFinite(matrix)) << i;
        matrix.ptr()[i] = -std::numeric_limits<double>::infinity();
        EXPECT_FALSE(isFinite(matrix)) << i;
    }
    EXPECT_TRUE(isFinite(osg::Matrixd()));
}

TEST(PropsPose, readsAPoseFromMatricesWithoutVolume)
{
    EXPECT_TRUE(isPose(poseOf(osg::Matrixd::scale(0.0, 0.0, 0.0))));
    EXPECT_TRUE(isPose(poseOf(osg::Matrixd::scale(2.0, 0.0, 3.0))));
    EXPECT_TRUE(isPose(poseOf(osg::Matrixd::scale(0.0, 0.0, 3.0))));
    expectPoint(poseOf(osg::Matrixd::scale(0.0, 0.0, 0.0) * osg::Matrixd::translate(1.0, 2.0, 3.0)).position,
                {1.0, 2.0, 3.0});
}

TEST(PropsPose, readsARotationAndAPlaceFromNumbersOfAnySize)
{
    for (const osg::Matrixd& matrix :
         {osg::Matrixd::scale(1e308, 1.0, 1e-300), osg::Matrixd::scale(1e-300, 1e-300, 1e-300),
          osg::Matrixd::scale(1e200, 1e200, 1e200) * osg::Matrixd::rotate(1.0, 1.0, 1.0, 0.0),
          osg::Matrixd(1e-8, 0, 0, 0, 5e-324, 0, 0, 0, 1, 1e-8, 2, 0, 0, 0, 0, 1),
          osg::Matrixd(1, 2, 3, 0, 2, 4, 6, 0, -1, -2, -3, 0, 0, 0, 0, 1)}) {
        const PropsPose pose = poseOf(matrix);
        EXPECT_NEAR(pose.rotation.length(), 1.0, 1e-6);
        EXPECT_EQ(pose.position, osg::Vec3d());
    }
}

TEST(PropsPose, readsAPoseFromAMirror)
{
    const PropsPose pose = poseOf(osg::Matrixd::scale(-1.0, 1.0, 1.0));
    EXPECT_TRUE(isPose(pose));
    EXPECT_LT(pose.scale.x() * pose.scale.y() * pose.scale.z(), 0.0);
}

TEST(PropsPose, takesApartWhatWasPutTogether)
{
    const osg::Quat rotation(0.7, osg::Vec3d(1.0, 2.0, 3.0));
    const PropsPose pose = poseOf(osg::Matrixd::scale(1.5, 0.5, 4.0) * osg::Matrixd::rotate(rotation) *
                                  osg::Matrixd::translate(-4.0, 5.0, 6.0));
    expectPoint(pose.position, {-4.0, 5.0, 6.0});
    expectPoint(pose.scale, {1.5, 0.5, 4.0}, 1e-6);
    for (const osg::Vec3d& axis : {osg::Vec3d(1.0, 0.0, 0.0), osg::Vec3d(0.0, 1.0, 0.0)})
        expectPoint(pose.rotation * axis, rotation * axis, 1e-6);
}
