#include "host/KivReader/humanoid/bodyfitting.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <tuple>

#include "host/KivReader/humanoid/bodyassembly.h"
#include "host/KivReader/humanoid/bodyplan.h"
#include "host/KivReader/humanoid/figurecheck.h"
#include "host/KivReader/humanoid/glitchrows.h"
#include "host/KivReader/humanoid/groundlevel.h"
#include "host/KivReader/humanoid/posesample.h"
#include "host/KivReader/humanoid/remainingjoints.h"
#include "host/KivReader/humanoid/restchoice.h"
#include "host/KivReader/humanoid/trunkrest.h"

namespace KivReader {

namespace {

using Kind = KivAnimation::PoseStep::Kind;

constexpr std::size_t kSampledPoses = 50;
constexpr double kUnequal = 0.1;  ///< of the longer one: what differs less are a person's two sides

std::string centimetres(double length)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.1f cm", length);
    return text;
}

/// Joints whose own columns move them may stand elsewhere than their offsets say, all through the motion.
void settleOffsets(MotionFigure& figure, const MatchedMotion& motion, const PoseSample& sample)
{
    const auto hips = static_cast<std::int32_t>(motion.matching.at("Hips"));
    std::vector<bool> isOverHips(figure.joints.size());
    for (std::int32_t i = hips; i >= 0; i = figure.joints[static_cast<std::size_t>(i)].parent)
        isOverHips[static_cast<std::size_t>(i)] = true;
    for (std::size_t i = 0; i < figure.joints.size(); ++i) {
        MotionFigure::Joint& joint = figure.joints[i];
        const PoseSteps steps = figure.stepsOf(joint);
        const bool shifts = std::any_of(steps.begin(), steps.end(),
                                        [](const auto& step) { return step.kind == Kind::Shift; });
        if (!shifts || isOverHips[i] || sample.poses.empty())
            continue;
        osg::Vec3d sum;
        for (const std::size_t frame : sample.frames)
            sum += moved(Placement(), steps, motion.row(frame)).place;
        joint.offset = sum / static_cast<double>(sample.frames.size());
    }
}

/// Where arms belong on the trunk is what the motion says, not the rest pose, which may hold them overhead,
/// shoulders and all.
osg::Vec3d armsOnTrunk(const PosedBody& body, const Placements& rest)
{
    const JointMatching& matching = body.motion.matching;
    const std::size_t trunk = commonAncestor(body.figure, body.at("LeftArm"), body.at("RightArm"));
    if (body.sample.poses.empty())
        return middle(rest, matching, "LeftArm", "RightArm");
    osg::Vec3d sum;
    for (const Placements& pose : body.sample.poses)
        sum += pose[trunk].inward(middle(pose, matching, "LeftArm", "RightArm"));
    return rest[trunk].outward(sum / static_cast<double>(body.sample.poses.size()));
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

MotionFigure fitted(const PosedBody& body, const RestPose& rest, ProfileRecord& record)
{
    const BodySource source = {
        body.figure,  rest, body.motion.matching, body.motion.avatar, armsOnTrunk(body, rest.placements),
        record.height};
    BodyPlan plan = planBody(source);
    planRemainingJoints(plan, source, record);
    tellOfHips(plan, record);
    MotionFigure figure = assemble(plan, source, record);
    record.groundShift = groundShift(body.motion, figure, record.height, record.thrownFrames);
    lift(figure, record.groundShift);
    return figure;
}

/// Of all that may be the rest pose the first one that gives a person, or the one with which the fewest
/// checks fail.
MotionFigure bestFitted(const PosedBody& body, const ProfileOptions& options, ProfileRecord& record)
{
    MotionFigure best;
    std::size_t fewest = 0;
    const ProfileRecord before = record;
    for (const RestCandidate& candidate : restCandidates(body, options)) {
        ProfileRecord now = before;
        now.restPose = candidate.told;
        MotionFigure figure = fitted(body, candidate.make(body), now);
        now.checks = checkFigure(body.motion.document, figure, body.motion.avatar, before.thrownFrames);
        const std::size_t failures = failuresOf(now.checks);
        now.restPose.score = 1.0 - double(failures) / double(now.checks.size());
        if (!best.joints.empty() && failures >= fewest)
            continue;
        fewest = failures;
        best = std::move(figure);
        record = std::move(now);
        if (failures == 0)
            break;
    }
    return best;
}

/// They are drawn as they are; but a file with such limbs is mostly not meant so.
void tellOfUnequalLimbs(const PosedBody& body, ProfileRecord& record)
{
    const Placements pose =
        body.sample.poses.empty() ? MatchedMotion::atRest(body.figure) : body.sample.poses.front();
    for (const auto& [from, to, what] :
         {std::tuple("UpLeg", "Leg", "thighs"), std::tuple("Leg", "Foot", "shins"),
          std::tuple("Arm", "ForeArm", "upper arms"), std::tuple("ForeArm", "Hand", "forearms")}) {
        std::array<double, 2> lengths{};
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            const std::string side = i == 0 ? "Left" : "Right";
            if (body.has(side + to))
                lengths[i] = (pose[body.at(side + from)].place - pose[body.at(side + to)].place).length();
        }
        const auto [less, more] = std::minmax({lengths[0], lengths[1]});
        if (less > 0.0 && more - less > kUnequal * more)
            record.warnings.push_back(std::string("the ") + what + " are of unequal lengths, left " +
                                      centimetres(lengths[0]) + ", right " + centimetres(lengths[1]) +
                                      ": they are drawn so");
    }
}

void tellOfThrownFrames(ProfileRecord& record)
{
    if (!record.thrownFrames.empty())
        record.warnings.push_back("the figure is thrown farther than a person can move in " +
                                  listOfFrames(record.thrownFrames) +
                                  " (counted from 0); they are played as they stand and count for nothing");
}

void tellOfFailures(ProfileRecord& record)
{
    for (const ProfileRecord::Check& check : record.checks) {
        if (!check.passed)
            record.warnings.push_back(check.sentence);
    }
}

}  // namespace

MotionFigure fitBody(const MatchedMotion& motion, const ProfileOptions& options, ProfileRecord& record)
{
    const MotionFigure raw = makeFigure(motion.document, FileFrame());
    PoseSample sample = samplePoses(motion.document, raw, kSampledPoses);
    const double rawHeight = standingHeight(motion, raw, sample);
    record.thrownFrames = thrownFrames(motion.document, raw, motion.matching.at("Hips"), rawHeight);
    leaveOut(sample, record.thrownFrames);
    tellOfThrownFrames(record);
    const FileFrame frame = findFrame(motion, raw, sample, options, record);
    MotionFigure figure = makeFigure(motion.document, frame);
    sample = inFrame(std::move(sample), frame);
    settleOffsets(figure, motion, sample);
    record.height = rawHeight * frame.unit;
    const PosedBody body = {motion, figure, sample, record.height};
    tellOfUnequalLimbs(body, record);
    MotionFigure best = bestFitted(body, options, record);
    tellOfFailures(record);
    return best;
}

}  // namespace KivReader
