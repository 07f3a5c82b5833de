#include "tests/host/KivReader/humanoid/figurecomparison.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <set>

#include "host/KivReader/figure/figurepose.h"
#include "host/KivReader/humanoid/recognition/recogniser.h"
#include "tools/figure/restfigure.h"

namespace KivReaderTest {

namespace {

using namespace KivReader;
using KivTestSupport::Rewriting;

constexpr double kFarthest = 0.5;    ///< centimetres
constexpr double kMostTurned = 5.0;  ///< degrees
constexpr std::size_t kComparedRows = 12;

constexpr std::array<const char*, 15> kSingle = {
    "Hips", "LeftUpLeg", "LeftLeg",     "LeftFoot", "RightUpLeg", "RightLeg",     "RightFoot", "Neck",
    "Head", "LeftArm",   "LeftForeArm", "LeftHand", "RightArm",   "RightForeArm", "RightHand"};

std::string mirroredName(const std::string& name)
{
    if (name.rfind("Left", 0) == 0)
        return "Right" + name.substr(4);
    return name.rfind("Right", 0) == 0 ? "Left" + name.substr(5) : name;
}

std::string otherSideIf(bool isMirrored, const std::string& name)
{
    return isMirrored ? mirroredName(name) : name;
}

std::string nameIn(const MotionDocument& document, std::int32_t joint)
{
    return joint < 0 ? "none of the file's" : document.joints[static_cast<std::size_t>(joint)].name;
}

std::set<std::int32_t> spineOf(const ReadPerson& person)
{
    std::set<std::int32_t> spine;
    for (const char* name : {"Spine", "Spine1", "Spine2", "Spine3"}) {
        if (person.jointFor(name) >= 0)
            spine.insert(person.jointFor(name));
    }
    return spine;
}

std::int32_t inNewFile(const Rewriting& rewriting, std::int32_t joint)
{
    return joint < 0 ? joint : static_cast<std::int32_t>(rewriting.joints[static_cast<std::size_t>(joint)]);
}

/// Where a spine ends and a neck begins is a matter of opinion where no name says it; others they must not
/// be.
std::string otherSpine(const ReadPerson& before, const ReadPerson& after, const Rewriting& rewriting)
{
    std::set<std::int32_t> expected;
    for (const std::int32_t joint : spineOf(before))
        expected.insert(inNewFile(rewriting, joint));
    const std::set<std::int32_t> found = spineOf(after);
    const bool isSame = std::includes(expected.begin(), expected.end(), found.begin(), found.end()) ||
                        std::includes(found.begin(), found.end(), expected.begin(), expected.end());
    return isSame && found.empty() == expected.empty() ? "" : "other joints are the spine";
}

struct Worst
{
    double distance = 0.0;  ///< centimetres
    double angle = 0.0;     ///< degrees
    std::string distant, turned;

    bool isSame() const { return distance <= kFarthest && angle <= kMostTurned; }

    void takeIn(const std::string& name, const Placement& expected, const Placement& now)
    {
        const double apart = (expected.place - now.place).length();
        // Written so that what is no number counts as far.
        if (!(apart <= distance)) {
            distance = apart;
            distant = name;
        }
        const osg::Quat turn = expected.turn.conj() * now.turn;
        const double degrees =
            2.0 * std::atan2(turn.asVec3().length(), std::fabs(turn.w())) * 57.29577951308232;
        if (!(degrees <= angle)) {
            angle = degrees;
            turned = name;
        }
    }

    std::string text() const
    {
        std::array<char, 200> line{};
        std::snprintf(line.data(), line.size(), "%s is %.2f cm away, %s is turned by %.1f°", distant.c_str(),
                      distance, turned.c_str(), angle);
        return line.data();
    }
};

/// Where a joint of the other reading is to be.
Placement expectedOf(const Placement& before, const Rewriting& rewriting, const osg::Quat& heading)
{
    Placement expected = before;
    if (rewriting.isMirrored) {
        expected.place.x() = -expected.place.x();
        const osg::Quat& turn = before.turn;
        expected.turn.set(turn.x(), -turn.y(), -turn.z(), turn.w());
    }
    return {heading * expected.place, expected.turn * heading};
}

const float* rowOf(const ReadPerson& person, std::size_t row)
{
    return person.document.values.data() + row * person.document.columns;
}

Worst compared(const ReadPerson& before, const ReadPerson& after, const Rewriting& rewriting,
               const osg::Quat& heading)
{
    Worst worst;
    const std::size_t stride = std::max<std::size_t>(1, before.document.frames / kComparedRows);
    for (std::size_t row = 0; row < before.document.frames; row += stride) {
        if (rewriting.isThrown(row))
            continue;
        const Placements then = placed(before.profiled.figure, rowOf(before, row));
        const Placements now = placed(after.profiled.figure, rowOf(after, row));
        for (const KivFigure::RestJoint& joint : KivFigure::restJoints()) {
            const auto old = before.index.find(joint.name);
            const auto here = after.index.find(otherSideIf(rewriting.isMirrored, joint.name));
            if (old != before.index.end() && here != after.index.end())
                worst.takeIn(joint.name, expectedOf(then[old->second], rewriting, heading),
                             now[here->second]);
        }
    }
    return worst;
}

}  // namespace

ReadPerson::ReadPerson(const MotionDocument& of)
    : document(of),
      matching(recognise(of, builtInProfileTable()).matching),
      profiled(makeProfiledFigure(of, ProfileOptions()))
{
    for (std::size_t i = 0; i < profiled.figure.joints.size(); ++i)
        index.emplace(profiled.figure.joints[i].name, i);
}

std::int32_t ReadPerson::jointFor(const std::string& name) const
{
    const auto found = matching.joints.find(name);
    return found == matching.joints.end() ? -1 : static_cast<std::int32_t>(found->second);
}

std::string otherJoint(const ReadPerson& before, const ReadPerson& after, const Rewriting& rewriting,
                       Names names)
{
    std::vector<std::string> toCompare(kSingle.begin(), kSingle.end());
    if (names == Names::All) {
        toCompare.clear();
        for (const KivFigure::RestJoint& joint : KivFigure::restJoints())
            toCompare.push_back(joint.name);
    }
    for (const std::string& name : toCompare) {
        if (names == Names::Body && before.jointFor(name) < 0)
            continue;
        const std::string nameThere = otherSideIf(rewriting.isMirrored, name);
        const std::int32_t expected = inNewFile(rewriting, before.jointFor(name));
        const std::int32_t found = after.jointFor(nameThere);
        if (expected != found)
            return nameThere + " is " + nameIn(after.document, found) + ", not " +
                   nameIn(after.document, expected) +
                   " (before: " + nameIn(before.document, before.jointFor(name)) + ")";
    }
    return names == Names::Body ? otherSpine(before, after, rewriting) : std::string();
}

std::string otherPlace(const ReadPerson& before, const ReadPerson& after, const Rewriting& rewriting)
{
    Worst best;
    best.distance = 1e30;
    for (unsigned quarter = 0; quarter < 4; ++quarter) {
        const osg::Quat heading(quarter * 1.5707963267948966, osg::Vec3d(0.0, 0.0, 1.0));
        const Worst worst = compared(before, after, rewriting, heading);
        if (worst.isSame())
            return {};
        if (worst.distance < best.distance)
            best = worst;
    }
    return best.text();
}

}  // namespace KivReaderTest
