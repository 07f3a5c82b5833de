#include "tests/support/motionrewriting/plantedtwins.h"

#include <filesystem>
#include <stdexcept>
#include <string>

#include "tests/support/builtpaths.h"
#include "tests/support/motionlibrary.h"
#include "tests/support/motionrewriting/movingfigure.h"
#include "tests/support/motionrewriting/rewritings.h"

namespace KivTestSupport {

namespace {

using KivReader::MotionDocument;
using Offset = std::array<double, 3>;

constexpr std::size_t kRows = 60;
constexpr double kHalfTurn = 3.14159265358979323846;
constexpr double kKilometre = 1e5;

Offset& offsetOf(MotionDocument& document, const std::string& joint)
{
    for (MotionDocument::Joint& candidate : document.joints) {
        if (candidate.name == joint)
            return candidate.offset;
    }
    throw std::logic_error("the walk has no joint " + joint);
}

void stretch(MotionDocument& document, const std::string& joint, double factor)
{
    for (double& value : offsetOf(document, joint))
        value *= factor;
}

MotionDocument turnedFrom(const MotionDocument& document, const std::vector<osg::Quat>& turns)
{
    return withFramesTurned(document, turns).document;
}

}  // namespace

MotionDocument walk()
{
    const auto file = std::filesystem::path(KivTestSupport::kRuntimeRoot) / "Data" / "BVH" / "walk.bvh";
    const KivReader::MotionReading reading = KivReader::readMotionDocument(readWholeFile(file));
    if (!reading.document)
        throw std::runtime_error(file.string() + ": " + reading.error.text());
    return withRowsAtMost(*reading.document, kRows);
}

MotionDocument walkWithBonesUpAtZero()
{
    const MotionDocument document = walk();
    return turnedFrom(document, turnsAlongBones(document, {0.0, 1.0, 0.0}));
}

MotionDocument walkWithBonesAsideAtZero()
{
    const MotionDocument document = walk();
    return turnedFrom(document, turnsAlongBones(document, {1.0, 0.0, 0.0}));
}

MotionDocument walkWithFeetBackwardsAtZero()
{
    const MotionDocument document = walk();
    std::vector<osg::Quat> turns(document.joints.size());
    for (std::size_t i = 0; i < document.joints.size(); ++i) {
        if (document.joints[i].name == "LeftFoot" || document.joints[i].name == "RightFoot")
            turns[i] = osg::Quat(kHalfTurn, osg::Vec3d(0.0, 1.0, 0.0)) *
                       osg::Quat(kHalfTurn / 2.0, osg::Vec3d(1.0, 0.0, 0.0));
    }
    return turnedFrom(document, turns);
}

MotionDocument walkWithUnknownNames()
{
    return withNumberedNames(walk()).document;
}

MotionDocument walkWithYDown()
{
    const MotionDocument document = walk();
    for (std::size_t basis = 0; basis < kBases; ++basis) {
        Rewriting rewriting = inBasis(document, basis);
        const bool turnsAboutX = (rewriting.outOf({1, 0, 0}) - osg::Vec3d(1, 0, 0)).length() < 1e-6 &&
                                 (rewriting.outOf({0, 1, 0}) - osg::Vec3d(0, -1, 0)).length() < 1e-6;
        if (turnsAboutX)
            return rewriting.document;
    }
    throw std::logic_error("there is no half turn about x");
}

MotionDocument walkWithRowsThrownAway()
{
    return withRowsThrown(walk(), kKilometre).document;
}

MotionDocument walkWithEndsBelowTheAnkles()
{
    MotionDocument document = walk();
    for (const char* end : {"LeftFootEnd", "RightFootEnd"}) {
        Offset& offset = offsetOf(document, end);
        offset = {0.0, offset[1], 0.0};
    }
    return document;
}

MotionDocument walkWithLongTrunk()
{
    MotionDocument document = walk();
    for (const char* joint : {"Spine", "Spine1", "Spine2", "Spine3", "Neck"})
        stretch(document, joint, 1.8);
    return document;
}

MotionDocument walkWithWideHips()
{
    MotionDocument document = walk();
    for (const char* joint : {"LeftUpLeg", "RightUpLeg"})
        offsetOf(document, joint)[0] *= 1.5;
    return document;
}

MotionDocument walkWithNeckInTheHead()
{
    MotionDocument document = walk();
    Offset& neck = offsetOf(document, "Neck");
    Offset& head = offsetOf(document, "Head");
    constexpr double kGone = 0.85;
    for (std::size_t i = 0; i < 3; ++i) {
        neck[i] += kGone * head[i];
        head[i] *= 1.0 - kGone;
    }
    return document;
}

}  // namespace KivTestSupport
