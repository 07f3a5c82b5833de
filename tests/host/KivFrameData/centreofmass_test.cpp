#include "KivFrameData/centreofmass.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using KivFrameData::CentreOfMass;

struct Figure
{
    std::vector<std::string> names;
    std::vector<osg::Vec3d> positions;

    void add(const std::string& name, double x, double y, double z)
    {
        names.push_back(name);
        positions.emplace_back(x, y, z);
    }
};

/// A trunk and two thighs.
Figure leastFigure()
{
    Figure figure;
    figure.add("LeftUpLeg", 10, 90, 0);
    figure.add("RightUpLeg", -10, 90, 0);
    figure.add("LeftLeg", 10, 50, 0);
    figure.add("RightLeg", -10, 50, 0);
    figure.add("Neck", 0, 150, 0);
    return figure;
}

Figure wholeFigure()
{
    Figure figure = leastFigure();
    figure.add("HeadEnd", 0, 175, 0);
    for (const double side : {1.0, -1.0}) {
        const std::string name = side > 0 ? "Left" : "Right";
        figure.add(name + "Arm", side * 18, 145, 0);
        figure.add(name + "ForeArm", side * 18, 115, 0);
        figure.add(name + "Hand", side * 18, 90, 0);
        figure.add(name + "HandEnd", side * 18, 80, 0);
        figure.add(name + "Foot", side * 10, 10, 0);
        figure.add(name + "ToeBase", side * 10, 2, 16);
    }
    return figure;
}

TEST(CentreOfMass, saysNothingAboutASkeletonWithoutATrunkOrThighs)
{
    for (const char* missing : {"Neck", "LeftUpLeg", "RightLeg"}) {
        Figure figure = leastFigure();
        for (std::string& name : figure.names)
            name = name == missing ? "Other" : name;
        const CentreOfMass motion(figure.names);
        EXPECT_FALSE(motion.isKnown()) << missing;
        EXPECT_FALSE(motion.of(figure.positions)) << missing;
    }
    EXPECT_FALSE(CentreOfMass({}).isKnown());
}

TEST(CentreOfMass, weighsTrunkAndThighsOfAnUnfinishedFigure)
{
    const Figure figure = leastFigure();
    const CentreOfMass motion(figure.names);
    const auto centre = motion.of(figure.positions);
    ASSERT_TRUE(centre);
    // Trunk 43.015 at 150 - 0.505 * 60 = 119.7; thighs 2 * 14.47 at 90 - 0.385 * 40 = 74.6; without a head
    // joint the neck stands for the head, which has no length: 6.81 at 150 is left out since nothing is there
    // to end it.
    const double expected = (43.015 * 119.7 + 28.94 * 74.6) / (43.015 + 28.94);
    EXPECT_NEAR(centre->x(), 0.0, 1e-9);
    EXPECT_NEAR(centre->y(), expected, 1e-9);
    EXPECT_NEAR(centre->z(), 0.0, 1e-9);
}

TEST(CentreOfMass, weighsEverySegmentOfAWholeFigure)
{
    const Figure figure = wholeFigure();
    const auto centre = CentreOfMass(figure.names).of(figure.positions);
    ASSERT_TRUE(centre);
    const double mass = 6.81 + 43.015 + 2 * (2.63 + 1.5 + 0.585 + 14.47 + 4.57 + 1.33);
    const double height =
        6.81 * (150 + 0.508 * 25) + 43.015 * (150 - 0.505 * 60) +
        2 * (2.63 * (145 - 0.576 * 30) + 1.5 * (115 - 0.457 * 25) + 0.585 * (90 - 0.769 * 10) +
             14.47 * (90 - 0.385 * 40) + 4.57 * (50 - 0.444 * 40) + 1.33 * (10 - 0.421 * 8));
    const double forward = 2 * 1.33 * 0.421 * 16;
    EXPECT_NEAR(centre->y(), height / mass, 1e-9);
    EXPECT_NEAR(centre->z(), forward / mass, 1e-9);
    EXPECT_GT(centre->y(), 90.0) << "a person's centre lies just above the hips";
    EXPECT_LT(centre->y(), 110.0);
}

TEST(CentreOfMass, movesAndTurnsWithTheFigure)
{
    Figure figure = wholeFigure();
    const CentreOfMass motion(figure.names);
    const osg::Vec3d before = *motion.of(figure.positions);
    const osg::Vec3d step(30, 5, -70);
    for (osg::Vec3d& position : figure.positions)
        position += step;
    EXPECT_LT((*motion.of(figure.positions) - before - step).length(), 1e-9);
}

TEST(CentreOfMass, leansToTheSideOfARaisedArm)
{
    Figure figure = wholeFigure();
    for (std::size_t i = 0; i < figure.names.size(); ++i)
        if (figure.names[i] == "LeftForeArm" || figure.names[i].rfind("LeftHand", 0) == 0)
            figure.positions[i] = osg::Vec3d(18 + (145 - figure.positions[i].y()), 145, 0);
    EXPECT_GT(CentreOfMass(figure.names).of(figure.positions)->x(), 0.5);
}

}  // namespace
