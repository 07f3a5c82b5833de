#include "KivFrameData/contacttracker.h"

#include <gtest/gtest.h>

namespace {

using KivFrameData::ContactTracker;

constexpr double kStep = 0.01;

/// One foot and a joint that never touches.
struct Foot
{
    ContactTracker tracker{{"Hips", "LeftFoot"}};
    double x = 0.0;

    explicit Foot(double lowest) { tracker.learn(place(lowest)); }
    static std::vector<osg::Vec3d> at(double x, double height) { return {{0, 95, 0}, {x, height, 0}}; }
    std::vector<osg::Vec3d> place(double height) const { return at(x, height); }

    bool touches(double height, double speed = 0.0)
    {
        x += speed * kStep;
        tracker.advance(place(height), kStep);
        return tracker.contacts().front().contact != 0;
    }
};

TEST(ContactTracker, hasNoPointsOnASkeletonWithoutFeetAndHands)
{
    ContactTracker tracker({"Hips", "Spine", "LeftPropsEnd"});
    tracker.learn({{}, {}, {}});
    tracker.advance({{}, {}, {}}, kStep);
    EXPECT_TRUE(tracker.contacts().empty());
}

TEST(ContactTracker, learnsNothingFromARowThatIsThrownFarBelowTheGround)
{
    Foot foot(9.0);
    foot.tracker.learn(foot.place(-5000.0));
    EXPECT_TRUE(foot.touches(9.5));
}

TEST(ContactTracker, picksFeetHandsAndProps)
{
    const ContactTracker tracker(
        {"Hips", "LeftFoot", "RightFoot", "LeftHand", "RightHand", "RightProps", "Head"});
    EXPECT_EQ(tracker.contacts().size(), 5u);
}

TEST(ContactTracker, touchesWhenAPointIsLowAndSlow)
{
    Foot foot(8.0);
    EXPECT_FALSE(foot.touches(20.0));
    EXPECT_FALSE(foot.touches(8.0 + ContactTracker::kTouchHeight + 0.5, 0.0)) << "still falling";
    EXPECT_FALSE(foot.touches(8.0 + ContactTracker::kTouchHeight + 0.1, 0.0)) << "slow but too high";
    EXPECT_TRUE(foot.touches(8.0 + ContactTracker::kTouchHeight - 0.1, 0.0));
}

TEST(ContactTracker, doesNotTouchWhileAPointRushesByLow)
{
    Foot foot(8.0);
    foot.touches(20.0);
    EXPECT_FALSE(foot.touches(8.0, ContactTracker::kTouchSpeed + 5.0)) << "falls as well";
    EXPECT_FALSE(foot.touches(8.0, ContactTracker::kTouchSpeed + 5.0));
    EXPECT_TRUE(foot.touches(8.0, ContactTracker::kTouchSpeed - 5.0));
}

TEST(ContactTracker, keepsTouchingBetweenTheTwoHeights)
{
    Foot foot(8.0);
    const double between = 8.0 + 0.5 * (ContactTracker::kTouchHeight + ContactTracker::kLeaveHeight);
    foot.touches(between);
    EXPECT_FALSE(foot.touches(between)) << "coming from above";
    EXPECT_TRUE(foot.touches(8.0 + ContactTracker::kTouchHeight - 0.2, 0.0) || foot.touches(8.0 + 2.8));
    for (double height = 10.8; height < between; height += 0.3)
        EXPECT_TRUE(foot.touches(height)) << height;
    EXPECT_FALSE(foot.touches(8.0 + ContactTracker::kLeaveHeight + 0.1));
    EXPECT_FALSE(foot.touches(between)) << "touches again only low down";
}

TEST(ContactTracker, keepsTouchingBetweenTheTwoSpeeds)
{
    Foot foot(8.0);
    EXPECT_TRUE(foot.touches(8.0));
    EXPECT_TRUE(foot.touches(8.0, 0.5 * (ContactTracker::kTouchSpeed + ContactTracker::kLeaveSpeed)));
    EXPECT_FALSE(foot.touches(8.0, ContactTracker::kLeaveSpeed + 5.0));
    EXPECT_FALSE(foot.touches(8.0, 0.5 * (ContactTracker::kTouchSpeed + ContactTracker::kLeaveSpeed)));
}

TEST(ContactTracker, neverTouchesWithAFootThatOnlyHangsInTheAir)
{
    Foot foot(60.0);
    EXPECT_FALSE(foot.touches(60.0));
    EXPECT_FALSE(foot.touches(60.0));
}

TEST(ContactTracker, forgetsEverythingButWhatItLearntOnARestart)
{
    Foot foot(8.0);
    EXPECT_TRUE(foot.touches(8.0));
    foot.tracker.restart();
    EXPECT_TRUE(foot.touches(8.0, 10000.0)) << "the first pose has no speed";
    foot.tracker.restart();
    EXPECT_FALSE(foot.touches(8.0 + ContactTracker::kTouchHeight + 0.5)) << "and no earlier touch";
}

TEST(ContactTracker, publishesMetresInTheOrderOfTheJoints)
{
    ContactTracker tracker({"LeftFoot", "Hips", "RightFoot"});
    tracker.advance({{10, 20, 30}, {}, {-10, 2, 3}}, kStep);
    ASSERT_EQ(tracker.contacts().size(), 2u);
    EXPECT_FLOAT_EQ(tracker.contacts()[0].x, 0.10f);
    EXPECT_FLOAT_EQ(tracker.contacts()[0].y, 0.20f);
    EXPECT_FLOAT_EQ(tracker.contacts()[0].z, 0.30f);
    EXPECT_FLOAT_EQ(tracker.contacts()[1].x, -0.10f);
    tracker.place({{1, 2, 3}, {}, {4, 5, 6}});
    EXPECT_FLOAT_EQ(tracker.contacts()[1].z, 0.06f) << "moved without being judged anew";
}

}  // namespace
