// Figures with what real files have in front of, between and above their joints.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "host/KivReader/figure/figurepose.h"
#include "host/KivReader/humanoid/profiledfigure.h"
#include "tests/host/KivReader/acceptedmotion.h"
#include "tests/support/foreignfigure.h"

namespace {

using namespace KivReader;
using KivReaderTest::accepted;
using KivTestSupport::ForeignFigure;
using testing::Contains;
using testing::Field;

const float* rowOf(const MotionDocument& document, std::size_t frame)
{
    return document.values.data() + frame * document.columns;
}

/// The joint that stands in this line of the file; past the last one where it is gone.
std::size_t jointOfLine(const MotionFigure& figure, std::size_t line)
{
    std::size_t joint = 0;
    while (joint < figure.joints.size() && figure.joints[joint].line != line)
        ++joint;
    return joint;
}

void expectMovedAsBefore(const MotionDocument& document, const ProfiledFigure& profiled)
{
    const MotionFigure plain = makeFigure(document, FileFrame());
    const osg::Vec3d shift(0.0, 0.0, profiled.record.groundShift);
    std::size_t compared = 0;
    for (std::size_t frame = 0; frame < document.frames; ++frame) {
        const Placements before = placed(plain, rowOf(document, frame));
        const Placements after = placed(profiled.figure, rowOf(document, frame));
        for (std::size_t i = 0; i < plain.joints.size(); ++i) {
            const std::size_t now = jointOfLine(profiled.figure, plain.joints[i].line);
            if (now == profiled.figure.joints.size())
                continue;
            ++compared;
            EXPECT_LT((before[i].place + shift - after[now].place).length(), 1e-3) << plain.joints[i].name;
        }
    }
    EXPECT_GE(compared, 21 * document.frames);
}

void expectFinite(const MotionFigure& figure)
{
    for (const MotionFigure::Joint& joint : figure.joints) {
        EXPECT_TRUE(std::isfinite((joint.offset + joint.fitShift).length())) << joint.name;
        for (const KivAnimation::PoseStep& step : figure.stepsOf(joint))
            EXPECT_TRUE(std::isfinite(step.vector.length() + step.rotation.length())) << joint.name;
    }
}

TEST(ForeignFigures, haveJointsWithoutLengthFoldedExactly)
{
    ForeignFigure figure({});
    figure.putBefore("LeftUpLeg", "LHipJoint");
    figure.putBefore("RightUpLeg", "RHipJoint");
    figure.putBefore("Spine", "LowerBack");
    const MotionDocument document = accepted(figure.text());
    const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
    for (const char* joint : {"LHipJoint", "RHipJoint", "LowerBack"})
        EXPECT_THAT(profiled.record.folded, Contains(Field(&ProfileRecord::Folded::joint, joint)));
    expectFinite(profiled.figure);
    expectMovedAsBefore(document, profiled);
}

TEST(ForeignFigures, keepAWrapperAboveTheHips)
{
    ForeignFigure figure({});
    figure.putBefore("Hips", "Reference");
    const MotionDocument document = accepted(figure.text());
    const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
    ASSERT_TRUE(profiled.record.isHumanoid) << profiled.record.whyNot;
    EXPECT_EQ(profiled.figure.joints[0].name, "Reference");
    EXPECT_EQ(profiled.figure.joints[1].name, "Hips");
    EXPECT_EQ(profiled.figure.joints[1].parent, 0);
    EXPECT_THAT(profiled.record.left, Contains("Reference"));
    expectMovedAsBefore(document, profiled);
}

TEST(ForeignFigures, mayHaveOneFrameOnly)
{
    MotionDocument document = accepted(ForeignFigure({}).text());
    document.frames = 1;
    document.values.resize(document.columns);
    const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
    EXPECT_TRUE(profiled.record.isHumanoid);
    expectFinite(profiled.figure);
    expectMovedAsBefore(document, profiled);
}

TEST(ForeignFigures, mayHaveNoMotion)
{
    const std::string text = ForeignFigure({}).text();
    const MotionDocument document = accepted(text.substr(0, text.find("MOTION")));
    ASSERT_FALSE(document.hasMotion);
    const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
    EXPECT_TRUE(profiled.record.isHumanoid);
    EXPECT_NEAR(profiled.record.height, 175.0, 1.0);
    expectFinite(profiled.figure);
}

/// The document with a chain of further joints, which do not move, over one of its joints.
MotionDocument withJointsOver(const std::string& name, std::int32_t count)
{
    MotionDocument document = accepted(ForeignFigure({}).text());
    const auto joint = std::find_if(document.joints.begin(), document.joints.end(),
                                    [&](const auto& candidate) { return candidate.name == name; });
    const auto index = static_cast<std::int32_t>(joint - document.joints.begin());
    std::vector<MotionDocument::Joint> chain(static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i) {
        MotionDocument::Joint& added = chain[static_cast<std::size_t>(i)];
        added.name = "Pass" + std::to_string(i);
        added.parent = i == 0 ? joint->parent : index + i - 1;
        added.line = 100000 + static_cast<std::size_t>(i);
    }
    for (MotionDocument::Joint& later : document.joints)
        later.parent += later.parent >= index ? count : 0;
    joint->parent = index + count - 1;
    document.joints.insert(joint, chain.begin(), chain.end());
    return document;
}

TEST(ForeignFigures, haveManyJointsBetweenTwoFoldedButNotAnyNumber)
{
    const MotionDocument many = withJointsOver("Spine", 32);
    const ProfiledFigure profiled = makeProfiledFigure(many, ProfileOptions());
    ASSERT_TRUE(profiled.record.isHumanoid) << profiled.record.whyNot;
    EXPECT_EQ(profiled.record.folded.size(), 32U);
    expectMovedAsBefore(many, profiled);
    const ProfileRecord tooMany = makeProfiledFigure(withJointsOver("Spine", 33), ProfileOptions()).record;
    EXPECT_FALSE(tooMany.isHumanoid);
    EXPECT_THAT(tooMany.whyNot, testing::HasSubstr("33 joints stand between Spine and the next"));
}

/// A pose at the origin in front of the motion is no part of it.
TEST(ForeignFigures, standOnTheGroundWhateverTheFirstFrameIs)
{
    MotionDocument document = accepted(ForeignFigure({}).text());
    const ProfileRecord asItIs = makeProfiledFigure(document, ProfileOptions()).record;
    document.values.insert(document.values.begin(), document.columns, 0.0F);
    ++document.frames;
    const ProfileRecord withFirst = makeProfiledFigure(document, ProfileOptions()).record;
    EXPECT_DOUBLE_EQ(withFirst.groundShift, asItIs.groundShift);
    EXPECT_EQ(withFirst.unit, asItIs.unit);
    EXPECT_NEAR(withFirst.height, asItIs.height, 1e-3);
}

}  // namespace
