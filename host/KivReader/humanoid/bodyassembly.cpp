#include "host/KivReader/humanoid/bodyassembly.h"

#include <algorithm>

namespace KivReader {

namespace {

using KivAnimation::PoseStep;

constexpr std::int32_t kNone = -1;
/// Sine of half the angle from which on a turned frame is worth telling of: a tenth of a degree.
constexpr double kTurned = 1e-3;

/// Parents before children, and the hips' branch first.
std::vector<std::size_t> orderOf(const BodyPlan& plan)
{
    std::vector<std::vector<std::size_t>> children(plan.joints.size());
    std::vector<bool> leadsToHips(plan.joints.size());
    for (auto i = static_cast<std::int32_t>(plan.index.at("Hips")); i != kNone;
         i = plan.joints[static_cast<std::size_t>(i)].parent)
        leadsToHips[static_cast<std::size_t>(i)] = true;
    std::vector<std::size_t> open;
    for (std::size_t i = plan.joints.size(); i-- > 0;) {
        if (plan.joints[i].parent == kNone)
            open.push_back(i);
        else
            children[static_cast<std::size_t>(plan.joints[i].parent)].push_back(i);
    }
    std::vector<std::size_t> order;
    while (!open.empty()) {
        const std::size_t joint = open.back();
        open.pop_back();
        order.push_back(joint);
        // Children stand last first, and the stack gives them back first first.
        std::vector<std::size_t>& next = children[joint];
        std::stable_partition(next.begin(), next.end(), [&](std::size_t i) { return !leadsToHips[i]; });
        open.insert(open.end(), next.begin(), next.end());
    }
    return order;
}

class Assembler
{
public:
    Assembler(const BodyPlan& plan, const BodySource& source) : m_plan(plan), m_source(source) {}

    /// All but the joint's steps.
    MotionFigure::Joint make(const PlannedJoint& planned) const
    {
        const PlannedJoint* parent = parentOf(planned);
        MotionFigure::Joint joint;
        joint.name = planned.name;
        joint.endSite = planned.endSite;
        if (planned.isSource)
            joint.line = m_source.figure.joints[static_cast<std::size_t>(planned.source)].line;
        joint.offset = planned.place;
        if (parent != nullptr) {
            joint.offset = parent->turn.conj() * (planned.place - parent->place);
            joint.fitShift = parent->turn.conj() * planned.fitShift;
        }
        return joint;
    }

    /// Back from the parent to the file's joint that carries it, on to the one that carries the child, and
    /// from there to the child.
    std::vector<PoseStep> stepsTo(const PlannedJoint& planned) const
    {
        const PlannedJoint* parent = parentOf(planned);
        std::vector<PoseStep> steps;
        const auto append = [&](const std::vector<PoseStep>& more) {
            steps.insert(steps.end(), more.begin(), more.end());
        };
        if (parent != nullptr)
            append(undone(fromSource(*parent)));
        append(stepsBetween(m_source.figure, parent == nullptr ? kNone : parent->source, planned.source));
        append(fromSource(planned));
        return simplified(steps);
    }

    /// From the axes of the file's joint to those that the avatar expects.
    osg::Quat turnOnSource(const PlannedJoint& planned) const
    {
        const osg::Quat turn = planned.turn * restOf(planned).turn.conj();
        return turn.asVec3().length() < 1e-7 ? osg::Quat() : turn;
    }

private:
    const PlannedJoint* parentOf(const PlannedJoint& planned) const
    {
        return planned.parent == kNone ? nullptr : &m_plan.joints[static_cast<std::size_t>(planned.parent)];
    }

    const Placement& restOf(const PlannedJoint& planned) const
    {
        return m_source.rest[static_cast<std::size_t>(planned.source)];
    }

    static PoseStep translation(const osg::Vec3d& vector)
    {
        PoseStep step;
        step.vector = vector;
        return step;
    }

    std::vector<PoseStep> fromSource(const PlannedJoint& planned) const
    {
        PoseStep turn;
        turn.kind = PoseStep::Kind::Rotate;
        turn.rotation = turnOnSource(planned);
        if (planned.isSource)
            return {turn};
        return {translation(restOf(planned).inward(planned.place)), turn};
    }

    const BodyPlan& m_plan;
    const BodySource& m_source;
};

}  // namespace

MotionFigure assemble(const BodyPlan& plan, const BodySource& source, ProfileRecord& record)
{
    const Assembler assembler(plan, source);
    std::vector<std::int32_t> placeInFigure(plan.joints.size(), kNone);
    MotionFigure figure;
    for (const std::size_t i : orderOf(plan)) {
        const PlannedJoint& planned = plan.joints[i];
        MotionFigure::Joint joint = assembler.make(planned);
        if (planned.parent != kNone)
            joint.parent = placeInFigure[static_cast<std::size_t>(planned.parent)];
        if (planned.isSource && plan.has(planned.name) &&
            assembler.turnOnSource(planned).asVec3().length() > kTurned)
            record.reframed.push_back(planned.name);
        placeInFigure[i] = static_cast<std::int32_t>(figure.joints.size());
        figure.addJoint(std::move(joint), assembler.stepsTo(planned));
    }
    return figure;
}

void lift(MotionFigure& figure, double height)
{
    PoseStep up;
    up.vector = osg::Vec3d(0.0, 0.0, height);
    MotionFigure::Joint& root = figure.joints.front();
    std::vector<PoseStep> steps = {up};
    const PoseSteps own = figure.stepsOf(root);
    steps.insert(steps.end(), own.begin(), own.end());
    figure.replaceSteps(0, simplified(steps));
    root.offset += up.vector;
}

}  // namespace KivReader
