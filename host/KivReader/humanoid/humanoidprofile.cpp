#include "KivReader/humanoidprofile.h"

#include <algorithm>
#include <array>

#include "host/KivReader/humanoid/bodyassembly.h"
#include "host/KivReader/humanoid/bodyplan.h"
#include "host/KivReader/humanoid/groundlevel.h"
#include "host/KivReader/humanoid/humanoidmeasure.h"
#include "host/KivReader/humanoid/profiledfigure.h"
#include "host/KivReader/humanoid/remainingjoints.h"

namespace KivReader {

namespace {

using Kind = KivAnimation::PoseStep::Kind;

constexpr std::array<const char*, 8> kLimbs = {"LeftUpLeg", "RightUpLeg", "LeftLeg",     "RightLeg",
                                               "LeftArm",   "RightArm",   "LeftForeArm", "RightForeArm"};
constexpr std::size_t kSettledFrames = 25;
/// What hangs from a folded joint repeats the moves of all that is folded above it: more would take far more
/// memory than their text.
constexpr std::size_t kMostBetween = 32;

/// Why this is no humanoid; empty if it is one.
std::string missingLimbs(const JointMatching& matching)
{
    std::string missing;
    for (const char* name : kLimbs) {
        if (!matching.has(name))
            missing += (missing.empty() ? "" : ", ") + std::string(name);
    }
    return missing.empty() ? missing : "there is no " + missing;
}

/// What both joints hang from.
std::size_t commonAncestor(const MotionFigure& figure, std::size_t one, std::size_t other)
{
    while (one != other) {
        std::size_t& later = one > other ? one : other;
        later = static_cast<std::size_t>(figure.joints[later].parent);
    }
    return one;
}

/// What both legs hang from are the hips, whatever their name.
void findHips(JointMatching& matching, const MotionFigure& figure, ProfileRecord& record)
{
    if (matching.has("Hips"))
        return;
    const std::size_t hips = commonAncestor(figure, matching.at("LeftUpLeg"), matching.at("RightUpLeg"));
    for (const auto& [name, joint] : matching.joints) {
        if (joint == hips)
            return;
    }
    matching.joints["Hips"] = hips;
    record.warnings.push_back("no joint is called Hips; " + figure.joints[hips].name +
                              " is what both legs hang from");
}

/// Why the joints between two of the avatar's are too many to be folded; empty where they are not.
std::string crowding(const JointMatching& matching, const MotionFigure& figure)
{
    std::vector<std::string> targets(figure.joints.size());
    for (const auto& [name, joint] : matching.joints)
        targets[joint] = name;
    std::vector<std::size_t> between(figure.joints.size());  // others since the last of the avatar's
    std::vector<bool> isBelowOne(figure.joints.size());
    for (std::size_t i = 1; i < figure.joints.size(); ++i) {
        const auto parent = static_cast<std::size_t>(figure.joints[i].parent);
        isBelowOne[i] = isBelowOne[parent] || !targets[parent].empty();
        between[i] = isBelowOne[i] && targets[parent].empty() ? between[parent] + 1 : 0;
        if (!targets[i].empty() && between[i] > kMostBetween)
            return std::to_string(between[i]) + " joints stand between " + targets[i] +
                   " and the next of the avatar's joints above it; more than " +
                   std::to_string(kMostBetween) + " are not folded";
    }
    return {};
}

/// Joints whose own columns move them may stand elsewhere than their offsets say, all through the motion.
void settleOffsets(MotionFigure& figure, const MatchedMotion& motion)
{
    const auto hips = static_cast<std::int32_t>(motion.matching.at("Hips"));
    std::vector<bool> isOverHips(figure.joints.size());
    for (std::int32_t i = hips; i >= 0; i = figure.joints[static_cast<std::size_t>(i)].parent)
        isOverHips[static_cast<std::size_t>(i)] = true;
    const std::vector<std::size_t> frames = motion.sampledFrames(kSettledFrames);
    for (std::size_t i = 0; i < figure.joints.size(); ++i) {
        MotionFigure::Joint& joint = figure.joints[i];
        const PoseSteps steps = figure.stepsOf(joint);
        const bool shifts = std::any_of(steps.begin(), steps.end(),
                                        [](const auto& step) { return step.kind == Kind::Shift; });
        if (!shifts || isOverHips[i] || frames.empty())
            continue;
        osg::Vec3d sum;
        for (const std::size_t frame : frames)
            sum += moved(Placement(), steps, motion.row(frame)).place;
        joint.offset = sum / static_cast<double>(frames.size());
    }
}

/// With all channels 0 some rigs hold their arms overhead, shoulders and all: where arms belong on the trunk
/// is what the motion says.
osg::Vec3d armsOnTrunk(const MatchedMotion& motion, const MotionFigure& figure, const Placements& rest)
{
    const std::size_t trunk =
        commonAncestor(figure, motion.matching.at("LeftArm"), motion.matching.at("RightArm"));
    const std::vector<std::size_t> frames = motion.sampledFrames(kSettledFrames);
    if (frames.empty())
        return middle(rest, motion.matching, "LeftArm", "RightArm");
    osg::Vec3d sum;
    for (const std::size_t frame : frames) {
        const Placements now = placed(figure, motion.row(frame));
        sum += now[trunk].inward(middle(now, motion.matching, "LeftArm", "RightArm"));
    }
    return rest[trunk].outward(sum / static_cast<double>(frames.size()));
}

void tellOfHips(const BodyPlan& plan, ProfileRecord& record)
{
    record.hipWidth = plan.hips.own;
    record.hipWidthMeasured = plan.hips.measured;
    if (plan.hips.measured < plan.hips.own)
        record.hipWidthReason = "wider than a torso of this height, with its arms so far apart, has them";
    if (plan.hips.measured > plan.hips.own)
        record.hipWidthReason = "narrower than a person of this height has them";
}

MotionFigure profiled(const MatchedMotion& motion, const ProfileOptions& options, ProfileRecord& record)
{
    MotionFigure figure = makeFigure(motion.document, findFrame(motion, options, record));
    settleOffsets(figure, motion);
    const bool useFirstFrame = options.firstFrameIsRest && motion.document.frames > 0;
    const Placements rest = useFirstFrame ? placed(figure, motion.row(0)) : MatchedMotion::atRest(figure);
    record.height = standingHeight(motion, figure);
    const BodySource source = {
        figure, rest, motion.matching, motion.avatar, armsOnTrunk(motion, figure, rest), record.height};
    BodyPlan plan = planBody(source);
    planRemainingJoints(plan, source, record);
    tellOfHips(plan, record);
    MotionFigure body = assemble(plan, source, record);
    record.groundShift = groundShift(motion, body, record.height);
    lift(body, record.groundShift);
    return body;
}

FileFrame frameAsAsked(const ProfileOptions& options)
{
    FileFrame frame;
    if (options.unit > 0.0)
        frame.unit = options.unit;
    frame.up = options.up == ProfileOptions::Up::Z ? UpAxis::Z : UpAxis::Y;
    return frame;
}

ProfiledFigure asItStands(const MotionDocument& document, const ProfileOptions& options, ProfileRecord record)
{
    const FileFrame frame = frameAsAsked(options);
    record.unit = options.unit > 0.0 ? "asked for" : "cm";
    record.centimetresPerUnit = frame.unit;
    record.unitReason = record.upReason = "the file is read as it stands";
    record.upAxis = frame.up == UpAxis::Z ? "z" : "y";
    return {makeFigure(document, frame), std::move(record)};
}

}  // namespace

ProfiledFigure makeProfiledFigure(const MotionDocument& document, const ProfileOptions& options)
{
    ProfileRecord record;
    if (options.use == ProfileOptions::Use::Off) {
        record.whyNot = "the profile is off";
        return asItStands(document, options, std::move(record));
    }
    const ProfileTable table = profileTableWith(options.tableFile);
    const MotionFigure raw = makeFigure(document, FileFrame());
    JointMatching matching = matchJoints(raw, table);
    record.dialect = matching.dialect;
    record.ambiguous = matching.ambiguous;
    record.whyNot = missingLimbs(matching);
    if (record.whyNot.empty())
        findHips(matching, raw, record);
    if (record.whyNot.empty() && !matching.has("Hips"))
        record.whyNot = "there is no joint for the hips";
    if (record.whyNot.empty())
        record.whyNot = crowding(matching, raw);
    if (!record.whyNot.empty())
        return asItStands(document, options, std::move(record));
    record.isHumanoid = true;
    MotionFigure figure = profiled({document, matching, table.figure}, options, record);
    return {std::move(figure), std::move(record)};
}

ProfileRecord profileMotion(const MotionDocument& document, const ProfileOptions& options)
{
    return makeProfiledFigure(document, options).record;
}

}  // namespace KivReader
