#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/KivReader/figure/figurepose.h"
#include "host/KivReader/humanoid/profiledfigure.h"
#include "tests/host/KivReader/csvtable.h"
#include "tests/support/motionlibrary.h"

namespace {

using namespace KivReader;

const std::set<std::string> kToys = {"tiny_two_joint.bvh", "fairmotion_sinusoidal.bvh"};

/// The avatar's joints that are not of the hands' inside, each with its parent.
const std::vector<std::pair<std::string, std::string>> kBody = {{"Hips", ""},
                                                                {"Spine", "Hips"},
                                                                {"Spine1", "Spine"},
                                                                {"Spine2", "Spine1"},
                                                                {"Spine3", "Spine2"},
                                                                {"Neck", "Spine3"},
                                                                {"Head", "Neck"},
                                                                {"LeftUpLeg", "Hips"},
                                                                {"LeftLeg", "LeftUpLeg"},
                                                                {"LeftFoot", "LeftLeg"},
                                                                {"RightUpLeg", "Hips"},
                                                                {"RightLeg", "RightUpLeg"},
                                                                {"RightFoot", "RightLeg"},
                                                                {"LeftShoulder", "Spine3"},
                                                                {"LeftArm", "LeftShoulder"},
                                                                {"LeftForeArm", "LeftArm"},
                                                                {"LeftHand", "LeftForeArm"},
                                                                {"RightShoulder", "Spine3"},
                                                                {"RightArm", "RightShoulder"},
                                                                {"RightForeArm", "RightArm"},
                                                                {"RightHand", "RightForeArm"}};

MotionDocument documentOf(const std::filesystem::path& file)
{
    MotionReading reading = readMotionDocument(KivTestSupport::readWholeFile(file));
    EXPECT_TRUE(reading.document) << reading.error.text();
    return reading.document ? std::move(*reading.document) : MotionDocument();
}

std::vector<std::filesystem::path> humanoidFiles()
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(KivTestSupport::motionLibrary() / "real")) {
        if (entry.path().extension() == ".bvh" && kToys.count(entry.path().filename().string()) == 0)
            files.push_back(entry.path());
    }
    return files;
}

FileFrame frameOf(const ProfileRecord& record)
{
    return {record.centimetresPerUnit, record.upAxis == "z" ? UpAxis::Z : UpAxis::Y};
}

std::map<std::string, std::size_t> byName(const MotionFigure& figure)
{
    std::map<std::string, std::size_t> index;
    for (std::size_t i = 0; i < figure.joints.size(); ++i)
        index[figure.joints[i].name] = i;
    return index;
}

/// Joints of the file that are still there: its index and that in the profiled figure.
std::vector<std::pair<std::size_t, std::size_t>> remainingJoints(const MotionFigure& plain,
                                                                 const ProfiledFigure& profiled)
{
    std::map<std::size_t, std::size_t> byLine;
    for (std::size_t i = 0; i < plain.joints.size(); ++i)
        byLine[plain.joints[i].line] = i;
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    for (std::size_t i = 0; i < profiled.figure.joints.size(); ++i) {
        const MotionFigure::Joint& joint = profiled.figure.joints[i];
        if (joint.line != 0)
            pairs.emplace_back(byLine.at(joint.line), i);
    }
    return pairs;
}

double worstDistance(const MotionFigure& plain, const ProfiledFigure& profiled,
                     const MotionDocument& document, std::size_t stride)
{
    const auto pairs = remainingJoints(plain, profiled);
    const osg::Vec3d shift(0.0, 0.0, profiled.record.groundShift);
    double worst = 0.0;
    for (std::size_t frame = 0; frame < document.frames; frame += stride) {
        const float* row = document.values.data() + frame * document.columns;
        const Placements before = placed(plain, row);
        const Placements after = placed(profiled.figure, row);
        for (const auto& [old, now] : pairs)
            worst = std::max(worst, (before[old].place + shift - after[now].place).length());
    }
    return worst;
}

constexpr std::size_t kStride = 10;  ///< every tenth frame

TEST(ProfiledFigure, leavesWhatIsNoHumanoidAsItIs)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    for (const std::string& toy : kToys) {
        SCOPED_TRACE(toy);
        const MotionDocument document = documentOf(KivTestSupport::motionLibrary() / "real" / toy);
        const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
        const MotionFigure plain = makeFigure(document, FileFrame());
        EXPECT_FALSE(profiled.record.isHumanoid);
        EXPECT_THAT(profiled.record.whyNot, testing::HasSubstr("one chain"));
        ASSERT_EQ(profiled.figure.joints.size(), plain.joints.size());
        for (std::size_t i = 0; i < plain.joints.size(); ++i) {
            EXPECT_EQ(profiled.figure.joints[i].name, plain.joints[i].name);
            EXPECT_EQ(profiled.figure.joints[i].offset, plain.joints[i].offset);
            EXPECT_EQ(profiled.figure.joints[i].stepCount, plain.joints[i].stepCount);
        }
    }
}

TEST(ProfiledFigure, movesEveryRemainingJointOfRealFilesExactlyAsBefore)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    const auto files = humanoidFiles();
    ASSERT_GE(files.size(), 26U);
    for (const auto& file : files) {
        SCOPED_TRACE(file.filename().string());
        const MotionDocument document = documentOf(file);
        const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
        const MotionFigure plain = makeFigure(document, frameOf(profiled.record));
        EXPECT_GE(remainingJoints(plain, profiled).size() + profiled.record.folded.size(),
                  plain.joints.size());
        EXPECT_LE(worstDistance(plain, profiled, document, kStride), 1e-3 * profiled.record.height);
    }
}

TEST(ProfiledFigure, movesEveryRemainingJointExactlyWithTheFirstFrameAsRestToo)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    ProfileOptions options;
    options.firstFrameIsRest = true;
    for (const auto& file : humanoidFiles()) {
        SCOPED_TRACE(file.filename().string());
        const MotionDocument document = documentOf(file);
        const ProfiledFigure profiled = makeProfiledFigure(document, options);
        const MotionFigure plain = makeFigure(document, frameOf(profiled.record));
        EXPECT_LE(worstDistance(plain, profiled, document, 10 * kStride), 1e-3 * profiled.record.height);
    }
}

TEST(ProfiledFigure, hasEveryBodyJointUnderItsParentWithALengthToDraw)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    for (const auto& file : humanoidFiles()) {
        SCOPED_TRACE(file.filename().string());
        const ProfiledFigure profiled = makeProfiledFigure(documentOf(file), ProfileOptions());
        EXPECT_TRUE(profiled.record.isHumanoid) << profiled.record.whyNot;
        const auto index = byName(profiled.figure);
        for (const auto& [name, parent] : kBody) {
            ASSERT_EQ(index.count(name), 1U) << name;
            const MotionFigure::Joint& joint = profiled.figure.joints[index.at(name)];
            if (parent.empty())
                continue;
            ASSERT_EQ(joint.parent, static_cast<std::int32_t>(index.at(parent))) << name;
            EXPECT_GT(joint.offset.length(), 1.0) << name;
            EXPECT_LT(joint.offset.length(), 0.4 * profiled.record.height) << name;
        }
    }
}

TEST(ProfiledFigure, hasWholeHands)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    for (const auto& file : humanoidFiles()) {
        SCOPED_TRACE(file.filename().string());
        const ProfiledFigure profiled = makeProfiledFigure(documentOf(file), ProfileOptions());
        const auto index = byName(profiled.figure);
        for (const std::string side : {"Left", "Right"}) {
            for (const std::string finger : {"Index", "Middle", "Ring", "Pinky"}) {
                ASSERT_EQ(index.count(side + "InHand" + finger), 1U);
                const MotionFigure::Joint& knuckle =
                    profiled.figure.joints[index.at(side + "Hand" + finger + "1")];
                EXPECT_EQ(knuckle.parent, static_cast<std::int32_t>(index.at(side + "InHand" + finger)));
                EXPECT_GT(knuckle.offset.length(), 2.0) << side << finger;
                EXPECT_LT(knuckle.offset.length(), 12.0) << side << finger;
            }
        }
    }
}

TEST(ProfiledFigure, isAsBigAsAPersonAndStandsOnTheGround)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    for (const auto& file : humanoidFiles()) {
        SCOPED_TRACE(file.filename().string());
        const MotionDocument document = documentOf(file);
        const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
        EXPECT_GE(profiled.record.height, 135.0);
        EXPECT_LE(profiled.record.height, 215.0);
        const auto index = byName(profiled.figure);
        double lowest = 1e9;
        for (std::size_t frame = 0; frame < document.frames; ++frame) {
            const Placements placements =
                placed(profiled.figure, document.values.data() + frame * document.columns);
            for (const char* foot : {"LeftFoot", "RightFoot"})
                lowest = std::min(lowest, placements[index.at(foot)].place.z());
        }
        EXPECT_GT(lowest, 2.0) << "ankles in the ground";
        EXPECT_LT(lowest, 0.2 * profiled.record.height) << "ankles in the air";
    }
}

/// At rest, what the avatar's pieces are modelled for: legs down, arms out, each to its side.
TEST(ProfiledFigure, restsInTheAvatarsPose)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    const std::map<std::string, osg::Vec3d> directions = {
        {"LeftLeg", {0, 0, -1}},        {"RightLeg", {0, 0, -1}},
        {"LeftFoot", {0, 0, -1}},       {"RightFoot", {0, 0, -1}},
        {"LeftForeArm", {1, 0, 0}},     {"RightForeArm", {-1, 0, 0}},
        {"LeftHand", {1, 0, 0}},        {"RightHand", {-1, 0, 0}},
        {"Spine1", {0, 0, 1}},          {"Neck", {0, 0, 1}},
        {"LeftUpLeg", {1, 0, 0}},       {"RightUpLeg", {-1, 0, 0}},
        {"LeftHandMiddle1", {1, 0, 0}}, {"RightHandMiddle1", {-1, 0, 0}}};
    for (const auto& file : humanoidFiles()) {
        SCOPED_TRACE(file.filename().string());
        const ProfiledFigure profiled = makeProfiledFigure(documentOf(file), ProfileOptions());
        const auto index = byName(profiled.figure);
        for (const auto& [name, direction] : directions) {
            osg::Vec3d offset = profiled.figure.joints[index.at(name)].offset;
            offset.normalize();
            EXPECT_GT(offset * direction, 0.4) << name;
        }
    }
}

TEST(ProfiledFigure, reachesTheHipsAlongFirstChildren)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    for (const auto& file : humanoidFiles()) {
        SCOPED_TRACE(file.filename().string());
        const ProfiledFigure profiled = makeProfiledFigure(documentOf(file), ProfileOptions());
        const std::vector<MotionFigure::Joint>& joints = profiled.figure.joints;
        std::size_t current = 0;
        while (joints[current].name != "Hips") {
            ASSERT_LT(current + 1, joints.size());
            ASSERT_EQ(joints[current + 1].parent, static_cast<std::int32_t>(current));
            ++current;
        }
        for (std::size_t i = 1; i < joints.size(); ++i)
            ASSERT_LT(joints[i].parent, static_cast<std::int32_t>(i));
    }
}

/// Every synthetic rig is the same motion; where its names and units are found out, joints stand as expected.
TEST(ProfiledFigure, findsTheSameMotionInEverySyntheticRig)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    const auto folder = KivTestSupport::motionLibrary() / "synthetic";
    std::map<unsigned, std::map<std::string, osg::Vec3d>> expected;
    for (const auto& row : KivReaderTest::readCsv(folder / "expected_world_cm_yup.csv"))
        expected[static_cast<unsigned>(std::stoul(row.at("frame")))][row.at("joint")] =
            osg::Vec3d(KivReaderTest::numberIn(row.at("x")), -KivReaderTest::numberIn(row.at("z")),
                       KivReaderTest::numberIn(row.at("y")));
    for (const auto& row : KivReaderTest::readCsv(folder / "manifest.csv")) {
        SCOPED_TRACE(row.at("file"));
        const MotionDocument document = documentOf(folder / row.at("file"));
        const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
        EXPECT_TRUE(profiled.record.isHumanoid) << profiled.record.whyNot;
        EXPECT_NEAR(profiled.record.centimetresPerUnit * KivReaderTest::numberIn(row.at("scale_per_cm")), 1.0,
                    1e-4);
        EXPECT_EQ(profiled.record.upAxis, row.at("up") == "Z" ? "z" : "y");
        EXPECT_GE(profiled.record.matched.size(), std::min<std::size_t>(std::stoul(row.at("joints")), 59) -
                                                      (row.at("file") == "wrapper_root_body21.bvh" ? 1 : 0));
        const auto index = byName(profiled.figure);
        const osg::Vec3d shift(0.0, 0.0, profiled.record.groundShift);
        for (const auto& [frame, places] : expected) {
            const Placements placements =
                placed(profiled.figure, document.values.data() + frame * document.columns);
            for (const char* joint : {"Hips", "LeftLeg", "RightFoot", "LeftUpLeg", "Spine"})
                EXPECT_LE((placements[index.at(joint)].place - shift - places.at(joint)).length(), 0.02)
                    << joint << " in frame " << frame;
        }
    }
}

}  // namespace
