#include "host/KivReader/bodyplan.h"

#include <algorithm>
#include <set>

namespace KivReader {

namespace {

using KivAnimation::PoseStep;

constexpr std::int32_t kNone = -1;
/// Sine of half the angle from which on a turned frame is worth telling of: a tenth of a degree.
constexpr double kTurned = 1e-3;

class RestPlanner
{
public:
    RestPlanner(BodyPlan& plan, const BodySource& source, ProfileRecord& record)
        : m_plan(plan),
          m_joints(source.figure.joints),
          m_source(source),
          m_record(record),
          m_hips(source.matching.at("Hips")),
          m_planned(m_joints.size(), kNone),
          m_target(m_joints.size()),
          m_hasTargetBelow(m_joints.size()),
          m_hasTargetAbove(m_joints.size()),
          m_isOverHips(m_joints.size())
    {}

    void plan()
    {
        lookAround();
        tellOfAvatarJoints();
        for (std::size_t i = 0; i < m_joints.size(); ++i) {
            if (m_planned[i] == kNone)
                settle(i);
        }
        hangHips();
    }

private:
    void lookAround()
    {
        for (const auto& [name, joint] : m_source.matching.joints)
            m_target[joint] = name;
        for (std::size_t i = m_joints.size(); i-- > 1;) {
            if (m_hasTargetBelow[i] || !m_target[i].empty())
                m_hasTargetBelow[static_cast<std::size_t>(m_joints[i].parent)] = true;
        }
        for (std::size_t i = 1; i < m_joints.size(); ++i) {
            const auto parent = static_cast<std::size_t>(m_joints[i].parent);
            m_hasTargetAbove[i] = m_hasTargetAbove[parent] || !m_target[parent].empty();
        }
        for (std::int32_t i = m_joints[m_hips].parent; i != kNone;
             i = m_joints[static_cast<std::size_t>(i)].parent)
            m_isOverHips[static_cast<std::size_t>(i)] = true;
        m_isOverHips[m_hips] = !m_plan.at("Hips").isSource;
    }

    void tellOfAvatarJoints()
    {
        for (std::size_t i = 0; i < m_plan.joints.size(); ++i) {
            const PlannedJoint& planned = m_plan.joints[i];
            if (!planned.isSource) {
                const std::string parent =
                    planned.parent < 0 ? "" : m_plan.joints[static_cast<std::size_t>(planned.parent)].name;
                m_record.inserted.push_back({planned.name, parent, planned.along});
                continue;
            }
            const auto source = static_cast<std::size_t>(planned.source);
            m_planned[source] = static_cast<std::int32_t>(i);
            m_record.matched.push_back(planned.name);
            if (m_joints[source].name != planned.name)
                m_record.renamed.push_back({m_joints[source].name, planned.name});
        }
    }

    /// A joint of the file's that is not in the plan yet: between two of the avatar's it is folded, elsewhere
    /// it stays.
    void settle(std::size_t joint)
    {
        if (joint == m_hips && m_isOverHips[joint]) {
            keep(joint);
            return;
        }
        const std::int32_t carrier = m_target[joint].empty() ? kNone : carrierOf(joint);
        const bool isBetween = m_target[joint].empty() && m_hasTargetAbove[joint] && m_hasTargetBelow[joint];
        if (carrier == kNone && !isBetween) {
            keep(joint);
            return;
        }
        m_planned[joint] = carrier != kNone ? carrier : m_planned[parentOf(joint)];
        m_record.folded.push_back(
            {m_joints[joint].name, carrier != kNone ? plannedName(carrier) : nextTargetBelow(joint)});
    }

    /// The avatar's joint that has this joint's turns, if its own place was no good.
    std::int32_t carrierOf(std::size_t joint) const
    {
        for (std::size_t i = 0; i < m_plan.index.size(); ++i) {
            if (m_plan.joints[i].source == static_cast<std::int32_t>(joint))
                return static_cast<std::int32_t>(i);
        }
        return m_hasTargetBelow[joint] && m_hasTargetAbove[joint] ? m_planned[parentOf(joint)] : kNone;
    }

    std::string nextTargetBelow(std::size_t joint) const
    {
        std::set<std::size_t> below = {joint};
        for (std::size_t i = joint + 1; i < m_joints.size(); ++i) {
            if (m_joints[i].parent < 0 || below.count(parentOf(i)) == 0)
                continue;
            if (!m_target[i].empty())
                return m_target[i];
            below.insert(i);
        }
        return {};
    }

    std::size_t parentOf(std::size_t joint) const { return static_cast<std::size_t>(m_joints[joint].parent); }
    const std::string& plannedName(std::int32_t planned) const
    {
        return m_plan.joints[static_cast<std::size_t>(planned)].name;
    }

    void keep(std::size_t joint)
    {
        PlannedJoint kept;
        kept.source = static_cast<std::int32_t>(joint);
        kept.isSource = true;
        kept.place = m_source.rest[joint].place;
        kept.turn = m_source.rest[joint].turn;
        kept.endSite = m_joints[joint].endSite;
        kept.name = m_joints[joint].name;
        if (m_joints[joint].parent != kNone) {
            kept.parent = m_planned[parentOf(joint)];
            if (!m_isOverHips[joint] && kept.parent != kNone)
                kept.turn = m_plan.joints[static_cast<std::size_t>(kept.parent)].turn;
        }
        if (kept.endSite && kept.parent != kNone)
            kept.name = plannedName(kept.parent) + "End";
        if (m_plan.has(kept.name))
            kept.name = "file:" + kept.name;
        m_planned[joint] = static_cast<std::int32_t>(m_plan.joints.size());
        m_plan.joints.push_back(kept);
        m_record.left.push_back(kept.name);
        if (!kept.endSite && joint != m_hips)
            m_record.unmatched.push_back(
                {m_joints[joint].name, nearestNames(m_joints[joint].name, m_source.avatar)});
    }

    void hangHips()
    {
        PlannedJoint& planned = m_plan.joints[m_plan.index.at("Hips")];
        if (!planned.isSource) {
            planned.parent = m_planned[m_hips];
            const auto told = std::find_if(m_record.inserted.begin(), m_record.inserted.end(),
                                           [](const auto& inserted) { return inserted.joint == "Hips"; });
            told->parent = plannedName(planned.parent);
        } else if (m_joints[m_hips].parent != kNone)
            planned.parent = m_planned[parentOf(m_hips)];
    }

    BodyPlan& m_plan;
    const std::vector<MotionFigure::Joint>& m_joints;
    const BodySource& m_source;
    ProfileRecord& m_record;
    std::size_t m_hips;                   ///< of the file; over the hips where these stand elsewhere
    std::vector<std::int32_t> m_planned;  ///< per joint of the file: what stands for it in the plan
    std::vector<std::string> m_target;    ///< the avatar's name of it
    std::vector<bool> m_hasTargetBelow, m_hasTargetAbove, m_isOverHips;
};

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

    MotionFigure::Joint make(const PlannedJoint& planned) const
    {
        MotionFigure::Joint joint;
        joint.name = planned.name;
        joint.endSite = planned.endSite;
        joint.line =
            planned.isSource ? m_source.figure.joints[static_cast<std::size_t>(planned.source)].line : 0;
        std::vector<PoseStep> steps;
        const PlannedJoint* parent =
            planned.parent == kNone ? nullptr : &m_plan.joints[static_cast<std::size_t>(planned.parent)];
        if (parent != nullptr)
            steps = undone(fromSource(*parent));
        const auto append = [&](const std::vector<PoseStep>& more) {
            steps.insert(steps.end(), more.begin(), more.end());
        };
        append(stepsBetween(m_source.figure, parent == nullptr ? kNone : parent->source, planned.source));
        append(fromSource(planned));
        joint.steps = simplified(steps);
        joint.offset =
            parent == nullptr ? planned.place : parent->turn.conj() * (planned.place - parent->place);
        if (parent != nullptr)
            joint.fitShift = parent->turn.conj() * planned.fitShift;
        return joint;
    }

    /// From the axes of the file's joint to those that the avatar expects.
    osg::Quat turnOnSource(const PlannedJoint& planned) const
    {
        const osg::Quat turn = planned.turn * restOf(planned).turn.conj();
        return turn.asVec3().length() < 1e-7 ? osg::Quat() : turn;
    }

private:
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

void planTheRest(BodyPlan& plan, const BodySource& source, ProfileRecord& record)
{
    RestPlanner(plan, source, record).plan();
}

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
        figure.joints.push_back(std::move(joint));
    }
    return figure;
}

void lift(MotionFigure& figure, double height)
{
    PoseStep up;
    up.vector = osg::Vec3d(0.0, 0.0, height);
    MotionFigure::Joint& root = figure.joints.front();
    root.steps.insert(root.steps.begin(), up);
    root.steps = simplified(root.steps);
    root.offset += up.vector;
}

}  // namespace KivReader
