// The rewritings that other tests rest on: an independent forward kinematics must find everybody where they
// were.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "tests/host/KivReader/acceptedmotion.h"
#include "tests/host/KivReader/forwardkinematics.h"
#include "tests/support/builtpaths.h"
#include "tests/support/motionlibrary.h"
#include "tests/support/motionrewriting/motiontextwriter.h"
#include "tests/support/motionrewriting/movingfigure.h"
#include "tests/support/motionrewriting/rewritings.h"

namespace {

using namespace KivTestSupport;
using KivReader::MotionDocument;
using KivReaderTest::accepted;

/// Of the figure's size, about: a hundredth of a millimetre on a person.
constexpr double kSame = 1e-5;

std::vector<MotionDocument> documents()
{
    std::vector<std::filesystem::path> folders = {std::filesystem::path(KivTestSupport::kRuntimeRoot) /
                                                  "Data" / "BVH"};
    if (!motionLibrary().empty())
        folders.push_back(motionLibrary() / "real");
    std::vector<MotionDocument> documents;
    for (const auto& folder : folders) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() == ".bvh" && entry.file_size() < 10'000'000)
                documents.push_back(withRowsAtMost(accepted(readWholeFile(entry.path())), 15));
        }
    }
    return documents;
}

double sizeOf(const MotionDocument& document)
{
    double size = 0.0;
    for (const MotionDocument::Joint& joint : document.joints)
        size += std::hypot(joint.offset[0], joint.offset[1], joint.offset[2]);
    return size;
}

osg::Vec3d vectorOf(const std::array<double, 3>& place)
{
    return osg::Vec3d(place[0], place[1], place[2]);
}

/// How far a joint is at most from where it should be, in parts of the figure's size.
double worstDistance(const MotionDocument& before, const Rewriting& rewriting)
{
    double worst = 0.0;
    for (std::size_t frame = 0; frame < before.frames; ++frame) {
        if (rewriting.isThrown(frame))
            continue;
        const auto then = KivReaderTest::placesOf(before, frame);
        const auto now = KivReaderTest::placesOf(rewriting.document, frame);
        for (std::size_t i = 0; i < then.size(); ++i)
            worst = std::max(
                worst, (rewriting.outOf(vectorOf(then[i])) - vectorOf(now[rewriting.joints[i]])).length());
    }
    return worst / sizeOf(rewriting.document);
}

TEST(MotionRewriting, leavesEverybodyWhereTheyWere)
{
    for (const MotionDocument& document : documents()) {
        SCOPED_TRACE(document.joints.front().name + " and " + std::to_string(document.joints.size() - 1));
        EXPECT_LT(worstDistance(document, withNumberedNames(document)), kSame);
        EXPECT_LT(worstDistance(document, withNamesBetween(document, "a_", "_1")), kSame);
        EXPECT_LT(worstDistance(document, withChildrenReversed(document)), kSame);
        EXPECT_LT(worstDistance(document, inUnits(document, 0.01)), kSame);
        EXPECT_LT(worstDistance(document, withPassThroughJoints(document)), kSame);
        EXPECT_LT(worstDistance(document, mirrored(document)), kSame);
        for (std::size_t basis = 0; basis < kBases; ++basis)
            EXPECT_LT(worstDistance(document, inBasis(document, basis)), kSame) << basis;
        EXPECT_LT(worstDistance(document, withFramesTurned(document, anyTurns(document, 1))), kSame);
        EXPECT_LT(worstDistance(document, withFramesTurned(document, turnsAlongBones(document, {0, 1, 0}))),
                  kSame);
        if (document.frames > 0) {
            EXPECT_LT(worstDistance(document, withFramesTurned(document, turnsToFrame(document, 0))), kSame);
        }
        if (document.frames >= 12) {
            EXPECT_LT(worstDistance(document, withRowsThrown(document, 1e4)), kSame);
        }
    }
}

TEST(MotionRewriting, saysSomethingElse)
{
    const MotionDocument document = documents().front();
    EXPECT_EQ(withNumberedNames(document).document.joints[1].name, "j1");
    EXPECT_EQ(withNamesBetween(document, "a_", "_1").document.joints[0].name, "a_Hips_1");
    EXPECT_GT(withPassThroughJoints(document).document.joints.size(), document.joints.size() + 4);
    EXPECT_NE(withChildrenReversed(document).joints[1], 1U);
    EXPECT_EQ(withRowsThrown(document, 1e4).thrownRows.size(), 3U);
    std::set<std::vector<double>> bases;
    for (std::size_t basis = 0; basis < kBases; ++basis) {
        const osg::Vec3d x = inBasis(document, basis).outOf({1, 0, 0});
        const osg::Vec3d y = inBasis(document, basis).outOf({0, 1, 0});
        bases.insert({std::round(x.x()), std::round(x.y()), std::round(x.z()), std::round(y.x()),
                      std::round(y.y()), std::round(y.z())});
    }
    EXPECT_EQ(bases.size(), kBases);
}

TEST(MotionRewriting, takesTheFrameForZeroThatItIsTold)
{
    const MotionDocument document = documents().front();
    const MotionDocument other = withFramesTurned(document, turnsToFrame(document, 3)).document;
    for (std::size_t column = 3; column < other.columns; ++column)
        EXPECT_NEAR(other.values[3 * other.columns + column], 0.0F, 1e-3F) << column;
}

TEST(MotionRewriting, exchangesTheSidesInNames)
{
    MotionDocument document;
    for (const char* name : {"Hips", "LeftUpLeg", "RightUpLeg", "Bip01 L Arm", "Bip01 R Arm", "lThigh",
                             "rThigh", "hand.l", "hand.r", "左足", "右足", "Lonely"}) {
        MotionDocument::Joint joint;
        joint.name = name;
        joint.parent = static_cast<std::int32_t>(document.joints.size()) - 1;
        document.joints.push_back(joint);
    }
    const MotionDocument other = mirrored(document).document;
    EXPECT_EQ(other.joints[0].name, "Hips");
    EXPECT_EQ(other.joints[1].name, "RightUpLeg");
    EXPECT_EQ(other.joints[4].name, "Bip01 L Arm");
    EXPECT_EQ(other.joints[5].name, "rThigh");
    EXPECT_EQ(other.joints[8].name, "hand.l");
    EXPECT_EQ(other.joints[9].name, "右足");
    EXPECT_EQ(other.joints[11].name, "Lonely");
}

TEST(MotionRewriting, isReadBackFromItsText)
{
    for (const MotionDocument& document : documents()) {
        SCOPED_TRACE(document.joints.front().name + " and " + std::to_string(document.joints.size() - 1));
        const MotionDocument other = withChildrenReversed(document).document;
        const MotionDocument again = accepted(motionTextOf(other));
        ASSERT_EQ(again.joints.size(), other.joints.size());
        EXPECT_EQ(again.frames, other.frames);
        EXPECT_EQ(again.values, other.values);
        EXPECT_EQ(again.frameTime, other.frameTime);
        for (std::size_t i = 0; i < other.joints.size(); ++i) {
            EXPECT_EQ(again.joints[i].name, other.joints[i].name);
            EXPECT_EQ(again.joints[i].parent, other.joints[i].parent);
            EXPECT_EQ(again.joints[i].offset, other.joints[i].offset);
        }
    }
}

}  // namespace
