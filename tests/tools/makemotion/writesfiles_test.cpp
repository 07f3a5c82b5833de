// What holds for every sample.
#include <gtest/gtest.h>

#include <unistd.h>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/motionlibrary.h"
#include "tests/tools/makemotion/motiontext.h"
#include "tools/figure/restfigure.h"
#include "tools/makemotion/bvhwriter.h"
#include "tools/makemotion/samplemotions.h"

namespace KivMotionTest {

namespace {

std::filesystem::path scratch()
{
    return std::filesystem::temp_directory_path() / ("makemotion-" + std::to_string(getpid()));
}

class EverySample : public testing::TestWithParam<KivMotion::SampleMotion>
{
protected:
    const MotionText& motion() const { return sample(GetParam().fileName); }
};

double kneeAngle(const MotionText& motion, const std::string& side, std::size_t frame)
{
    const Placed shin = motion.placed(motion.find(side + "Leg"), frame);
    const Placed thigh = motion.placed(motion.find(side + "UpLeg"), frame);
    const Point along = motion.at(side + "Foot", frame) - shin.at;
    // Positive where the shin points behind the thigh.
    const double behind = -dot(along, thigh.toWorld({0, 0, 1}) - thigh.at);
    const double below = -dot(along, thigh.toWorld({0, 1, 0}) - thigh.at);
    return std::atan2(behind, below) * 180 / std::acos(-1.0);
}

TEST(MakeMotion, refusesAFolderThatIsAFile)
{
    const std::filesystem::path file = scratch();
    std::ofstream(file) << "in the way";
    EXPECT_THROW(KivMotion::writeSampleMotions(file), std::runtime_error);
    std::filesystem::remove(file);
}

TEST(MakeMotion, namesTheFileThatCannotBeWritten)
{
    const std::filesystem::path folder = scratch();
    std::filesystem::create_directories(folder / "walk.bvh");
    try {
        KivMotion::writeSampleMotions(folder);
        ADD_FAILURE() << "wrote over a folder";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("walk.bvh"), std::string::npos);
    }
    std::filesystem::remove_all(folder);
}

TEST_P(EverySample, isTheSameByteForByteOnASecondRun)
{
    const KivMotion::Rig rig(GetParam().withProps);
    std::ostringstream again;
    KivMotion::writeBvh(again, GetParam().make(rig));
    EXPECT_TRUE(again.str() == sampleText(GetParam().fileName));
}

TEST_P(EverySample, isSmallerThanTwoMegabytes)
{
    EXPECT_LT(sampleText(GetParam().fileName).size(), 2000000U);
}

TEST_P(EverySample, lastsSomeSecondsAtSixtyFramesASecond)
{
    EXPECT_NEAR(motion().frameTime(), 1 / 60.0, 1e-6);
    EXPECT_GE(motion().frames(), 300U);
    EXPECT_LE(motion().frames(), 900U);
}

TEST_P(EverySample, hasTheJointsOfTheRestFigure)
{
    const std::size_t props = GetParam().withProps ? 2 : 0;
    EXPECT_EQ(motion().joints().size(), KivFigure::restJoints().size() + props);
    for (const TextJoint& joint : motion().joints()) {
        const KivFigure::RestJoint* rest = KivFigure::findRestJoint(joint.name);
        ASSERT_NE(rest, nullptr) << joint.name;
        if (joint.parent < 0)
            continue;
        EXPECT_EQ(motion().joints()[static_cast<std::size_t>(joint.parent)].name, rest->parent);
        EXPECT_LT(length(joint.offset - Point{rest->offset[0], rest->offset[1], rest->offset[2]}), 1e-4);
    }
}

TEST_P(EverySample, turnsNoAngleByMoreThanTwentyDegreesAFrame)
{
    const auto& rows = motion().rows();
    for (const TextJoint& joint : motion().joints())
        for (std::size_t c = 0; c < joint.channels.size(); ++c) {
            if (joint.channels[c].find("rotation") == std::string::npos)
                continue;
            double most = 0;
            for (std::size_t f = 1; f < rows.size(); ++f)
                most = std::max(
                    most, std::abs(rows[f][joint.firstChannel + c] - rows[f - 1][joint.firstChannel + c]));
            EXPECT_LE(most, 20) << joint.name << ' ' << joint.channels[c];
        }
}

TEST_P(EverySample, bendsNoKneeForwards)
{
    for (const char* side : {"Left", "Right"})
        for (std::size_t f = 0; f < motion().frames(); ++f)
            ASSERT_GT(kneeAngle(motion(), side, f), 0) << side << " knee in frame " << f;
}

TEST_P(EverySample, bendsEveryElbowForwardsOnly)
{
    for (const std::string side : {"Left", "Right"})
        for (std::size_t f = 0; f < motion().frames(); ++f) {
            const Placed upper = motion().placed(motion().find(side + "Arm"), f);
            const Point along = motion().at(side + "Hand", f) - motion().at(side + "ForeArm", f);
            ASSERT_GT(dot(along, upper.toWorld({0, 0, 1}) - upper.at), 0) << side << " elbow in frame " << f;
        }
}

TEST_P(EverySample, putsNoSoleIntoTheGround)
{
    for (const char* foot : {"LeftFoot", "RightFoot"})
        for (const Point& point : solePoints())
            for (std::size_t f = 0; f < motion().frames(); ++f)
                ASSERT_GT(motion().at(foot, point, f).y, -1) << foot << " in frame " << f;
}

TEST_P(EverySample, keepsTheHandsOutOfTheBody)
{
    for (const std::string side : {"Left", "Right"})
        for (std::size_t f = 0; f < motion().frames(); ++f) {
            // In the pelvis' frame: a box about hips and thighs.
            const Placed hips = motion().placed(motion().find("Hips"), f);
            const Point hand = motion().at(side + "HandMiddle1", f) - hips.at;
            const Point across = hips.toWorld({1, 0, 0}) - hips.at, ahead = hips.toWorld({0, 0, 1}) - hips.at;
            const bool inside =
                std::abs(dot(hand, across)) < 17 && std::abs(dot(hand, ahead)) < 9 && hand.y < 30;
            ASSERT_FALSE(inside) << side << " hand in frame " << f;
        }
}

INSTANTIATE_TEST_SUITE_P(MakeMotion, EverySample, testing::ValuesIn(KivMotion::sampleMotions()),
                         [](const auto& named) {
                             return named.param.fileName.substr(0, named.param.fileName.find('.'));
                         });

}  // namespace

}  // namespace KivMotionTest
