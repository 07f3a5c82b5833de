#include "apps/kivplayer/window/state/propstate.h"

#include <gtest/gtest.h>

#include <osg/Math>

using KivPlayer::PropState;

namespace {

void expectVector(const osg::Vec3d& actual, const osg::Vec3d& expected)
{
    EXPECT_LT((actual - expected).length(), 1e-6) << actual.x() << ", " << actual.y() << ", " << actual.z();
}

}  // namespace

TEST(PropState, findsTheAnglesThatItWasTurnedTo)
{
    PropState prop;
    for (const osg::Vec3d& degrees :
         {osg::Vec3d(), osg::Vec3d(10, 20, 30), osg::Vec3d(-170, 80, 100), osg::Vec3d(45, -89, -45)}) {
        prop.turnTo(degrees);
        expectVector(prop.angles(), degrees);
    }
}

TEST(PropState, findsAnglesOfTheSameTurnWhereTheyAreNotUnique)
{
    PropState prop;
    prop.turnTo({30, 90, 10});
    const osg::Vec3d point = osg::Vec3d(1, 2, 3) * prop.matrix();
    prop.turnTo(prop.angles());
    expectVector(osg::Vec3d(1, 2, 3) * prop.matrix(), point);
}

TEST(PropState, scalesThenTurnsThenMoves)
{
    PropState prop;
    prop.scale.set(2, 2, 2);
    prop.turnTo({0, 0, 90});
    prop.position.set(10, 0, 0);
    expectVector(osg::Vec3d(1, 0, 0) * prop.matrix(), {10, 2, 0});
}
