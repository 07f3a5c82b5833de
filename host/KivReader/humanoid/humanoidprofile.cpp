#include "KivReader/humanoidprofile.h"

#include <algorithm>

#include "host/KivReader/humanoid/bodyassembly.h"
#include "host/KivReader/humanoid/bodyplan.h"
#include "host/KivReader/humanoid/groundlevel.h"
#include "host/KivReader/humanoid/humanoidmeasure.h"
#include "host/KivReader/humanoid/profiledfigure.h"
#include "host/KivReader/humanoid/recognition/recogniser.h"
#include "host/KivReader/humanoid/remainingjoints.h"

namespace KivReader {

namespace {

using Kind = KivAnimation::PoseStep::Kind;

constexpr std::size_t kSettledFrames = 25;
/// What both joints hang from.
std::size_t commonAncestor(const MotionFigure& figure, std::size_t one, std::size_t other)
{
    while (one != other) {
        std::size_t& later = one > other ? one : other;
        later = static_cast<std::size_t>(figure.joints[later].parent);
    }
    return one;
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
    Recognition found = recognise(document, table);
    const JointMatching& matching = found.matching;
    record.dialect = matching.dialect;
    record.ambiguous = matching.ambiguous;
    record.isHumanoid = found.isHumanoid;
    record.whyNot = std::move(found.whyNot);
    record.confidence = found.confidence;
    record.evidence = std::move(found.evidence);
    if (!record.isHumanoid)
        return asItStands(document, options, std::move(record));
    record.warnings = matching.warnings;
    MotionFigure figure = profiled({document, matching, table.figure}, options, record);
    return {std::move(figure), std::move(record)};
}

ProfileRecord profileMotion(const MotionDocument& document, const ProfileOptions& options)
{
    return makeProfiledFigure(document, options).record;
}

}  // namespace KivReader
