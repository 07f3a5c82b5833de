#include "host/KivReader/humanoid/remainingjoints.h"

#include <algorithm>
#include <set>

namespace KivReader {

namespace {

constexpr std::int32_t kNone = -1;

/// How a joint of the file's stands to those that are the avatar's.
struct Standing
{
    std::string target;  ///< the avatar's name of it; empty for none
    bool hasTargetAbove = false;
    bool hasTargetBelow = false;
    bool isOverHips = false;
};

std::vector<Standing> standingsOf(const BodySource& source, const BodyPlan& plan)
{
    const std::vector<MotionFigure::Joint>& joints = source.figure.joints;
    std::vector<Standing> standings(joints.size());
    for (const auto& [name, joint] : source.matching.joints)
        standings[joint].target = name;
    for (std::size_t i = joints.size(); i-- > 1;) {
        if (standings[i].hasTargetBelow || !standings[i].target.empty())
            standings[static_cast<std::size_t>(joints[i].parent)].hasTargetBelow = true;
    }
    for (std::size_t i = 1; i < joints.size(); ++i) {
        const Standing& parent = standings[static_cast<std::size_t>(joints[i].parent)];
        standings[i].hasTargetAbove = parent.hasTargetAbove || !parent.target.empty();
    }
    const std::size_t hips = source.matching.at("Hips");
    for (std::int32_t i = joints[hips].parent; i != kNone; i = joints[static_cast<std::size_t>(i)].parent)
        standings[static_cast<std::size_t>(i)].isOverHips = true;
    standings[hips].isOverHips = !plan.at("Hips").isSource;
    return standings;
}

class RemainingJointsPlanner
{
public:
    RemainingJointsPlanner(BodyPlan& plan, const BodySource& source, ProfileRecord& record)
        : m_plan(plan),
          m_joints(source.figure.joints),
          m_source(source),
          m_record(record),
          m_hips(source.matching.at("Hips")),
          m_standings(standingsOf(source, plan)),
          m_planned(m_joints.size(), kNone)
    {}

    void plan()
    {
        tellOfAvatarJoints();
        for (std::size_t i = 0; i < m_joints.size(); ++i) {
            if (m_planned[i] == kNone)
                settle(i);
        }
        hangHips();
    }

private:
    void tellOfAvatarJoints()
    {
        for (std::size_t i = 0; i < m_plan.joints.size(); ++i) {
            const PlannedJoint& planned = m_plan.joints[i];
            if (!planned.isSource) {
                const std::string parent = planned.parent == kNone ? "" : plannedName(planned.parent);
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

    /// A joint that is not in the plan yet. It is one of the avatar's whose place was no good, and folded
    /// into the one that has its turns; or it is between two of the avatar's, and folded; or it stays.
    void settle(std::size_t joint)
    {
        const Standing& standing = m_standings[joint];
        const bool isBetween = standing.hasTargetAbove && standing.hasTargetBelow;
        const std::int32_t carrier = standing.target.empty() ? kNone : carrierOf(joint);
        if (joint == m_hips && standing.isOverHips)
            keep(joint);
        else if (carrier != kNone)
            fold(joint, carrier, plannedName(carrier));
        else if (standing.target.empty() && isBetween)
            fold(joint, m_planned[parentOf(joint)], nextTargetBelow(joint));
        else
            keep(joint);
    }

    void fold(std::size_t joint, std::int32_t into, const std::string& name)
    {
        m_planned[joint] = into;
        m_record.folded.push_back({m_joints[joint].name, name});
    }

    /// The avatar's joint that has this joint's turns.
    std::int32_t carrierOf(std::size_t joint) const
    {
        for (std::size_t i = 0; i < m_plan.index.size(); ++i) {
            if (m_plan.joints[i].source == static_cast<std::int32_t>(joint))
                return static_cast<std::int32_t>(i);
        }
        const bool isBetween = m_standings[joint].hasTargetAbove && m_standings[joint].hasTargetBelow;
        return isBetween ? m_planned[parentOf(joint)] : kNone;
    }

    std::string nextTargetBelow(std::size_t joint) const
    {
        std::set<std::size_t> below = {joint};
        for (std::size_t i = joint + 1; i < m_joints.size(); ++i) {
            if (m_joints[i].parent == kNone || below.count(parentOf(i)) == 0)
                continue;
            if (!m_standings[i].target.empty())
                return m_standings[i].target;
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
        const PlannedJoint kept = keptAs(joint);
        m_planned[joint] = static_cast<std::int32_t>(m_plan.joints.size());
        m_plan.joints.push_back(kept);
        m_record.left.push_back(kept.name);
        if (!kept.endSite && joint != m_hips)
            m_record.unmatched.push_back(
                {m_joints[joint].name, nearestNames(m_joints[joint].name, m_source.avatar)});
    }

    /// It goes on in the axes of what it hangs from; only what is over the hips has its own.
    PlannedJoint keptAs(std::size_t joint) const
    {
        PlannedJoint kept;
        kept.name = m_joints[joint].name;
        kept.source = static_cast<std::int32_t>(joint);
        kept.isSource = true;
        kept.place = m_source.rest[joint].place;
        kept.turn = m_source.rest[joint].turn;
        kept.endSite = m_joints[joint].endSite;
        if (m_joints[joint].parent != kNone)
            kept.parent = m_planned[parentOf(joint)];
        if (kept.parent != kNone && !m_standings[joint].isOverHips)
            kept.turn = m_plan.joints[static_cast<std::size_t>(kept.parent)].turn;
        if (kept.parent != kNone && kept.endSite)
            kept.name = plannedName(kept.parent) + "End";
        if (m_plan.has(kept.name))
            kept.name = "file:" + kept.name;
        return kept;
    }

    /// Hips that were put elsewhere hang from the file's own.
    void hangHips()
    {
        PlannedJoint& planned = m_plan.joints[m_plan.index.at("Hips")];
        if (!planned.isSource) {
            planned.parent = m_planned[m_hips];
            const auto told = std::find_if(m_record.inserted.begin(), m_record.inserted.end(),
                                           [](const auto& inserted) { return inserted.joint == "Hips"; });
            told->parent = plannedName(planned.parent);
        } else if (m_joints[m_hips].parent != kNone) {
            planned.parent = m_planned[parentOf(m_hips)];
        }
    }

    BodyPlan& m_plan;
    const std::vector<MotionFigure::Joint>& m_joints;
    const BodySource& m_source;
    ProfileRecord& m_record;
    std::size_t m_hips;  ///< of the file; over the hips where these stand elsewhere
    std::vector<Standing> m_standings;
    std::vector<std::int32_t> m_planned;  ///< per joint of the file: what stands for it in the plan
};

}  // namespace

void planRemainingJoints(BodyPlan& plan, const BodySource& source, ProfileRecord& record)
{
    RemainingJointsPlanner(plan, source, record).plan();
}

}  // namespace KivReader
