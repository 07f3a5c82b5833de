#include <algorithm>
#include <array>
#include <cmath>

#include "host/KivReader/humanoid/recognition/assignment.h"

namespace KivReader {

namespace {

constexpr std::array<const char*, 4> kSpine = {"Spine", "Spine1", "Spine2", "Spine3"};
constexpr double kCrownToLeg = 0.35;  ///< from the arms' fork to the crown
constexpr double kFarFromNeck = 0.5;  ///< of the way up to the joint before: a head is less far from its neck
constexpr double kTwin = 0.03;        ///< of their length: twins differ by less
constexpr double kNoCrown = 0.1;      ///< of the way to the crown
constexpr double kStubbyCrown = 0.25;  ///< of the way to the crown: what is left over a head that is none

class TrunkAssigner
{
public:
    TrunkAssigner(Assignment& assignment, const Evidence& evidence, const Body& body,
                  const JointMatching& table)
        : m_assignment(assignment), m_evidence(evidence), m_tree(evidence.tree), m_body(body), m_table(table)
    {}

    void assign()
    {
        const std::size_t hips = m_body.legs.fork;
        m_assignment.put("Hips", hips, "both legs hang from it");
        std::vector<std::size_t> spine = spineJoints();
        assignHead(spine);
        assignSpine(spine);
    }

private:
    /// From the hips to what the arms hang from, joints that coincide as one: the last of them.
    std::vector<std::size_t> spineJoints() const
    {
        const std::size_t top = m_body.arms.fork;
        const std::size_t meeting = m_tree.commonAncestor(m_body.legs.fork, top);
        std::vector<std::size_t> up;
        std::size_t last = m_tree.bones.size();  // the nearest one above that is taken
        for (std::size_t joint = top; joint != meeting; joint = m_tree.parentOf(joint)) {
            if (last == m_tree.bones.size() || !m_tree.coincides(last))
                up.push_back(joint);
            last = joint;
        }
        std::reverse(up.begin(), up.end());
        // On top of the hips a joint is the spine's only where it does something.
        const bool onHips = !up.empty() && m_tree.coincides(up.front());
        if (onHips && up.size() > 1 && !m_tree.bones[up.front()].turns)
            up.erase(up.begin());
        return up;
    }

    /// The chain beside the arms that is likeliest a head's; empty for none.
    Chain headChain(const std::vector<std::size_t>& spine) const
    {
        Chain best;
        double bestScore = -3.0;
        for (auto joint = spine.rbegin(); joint != spine.rend(); ++joint) {
            for (std::size_t i = 0; i < m_tree.bones[*joint].childCount; ++i) {
                const std::size_t child = m_tree.child(*joint, i);
                if (isTaken(child))
                    continue;
                const double score = headScore(child) - 0.5 * static_cast<double>(joint - spine.rbegin());
                if (score > bestScore) {
                    bestScore = score;
                    best = chainFrom(m_evidence, child);
                }
            }
        }
        return best;
    }

    bool isTaken(std::size_t child) const
    {
        return m_tree.isBelow(m_body.arms.fork, child) || child == m_body.arms.one.first ||
               child == m_body.arms.other.first || m_tree.isBelow(m_body.legs.fork, child);
    }

    double headScore(std::size_t child) const
    {
        const BoneTree::Bone& bone = m_tree.bones[child];
        const NameHint& hint = m_evidence.hints[child];
        if (bone.isEnd)
            return -5.0;
        const double reach = bone.span / m_body.legs.asLegs.length();
        double score = -std::fabs(std::log(std::max(reach, 1e-6) / kCrownToLeg));
        if (hint.mayBe(Part::Neck) || hint.mayBe(Part::Head))
            score += 4.0 * hint.weight;
        if (hint.isNever || hint.side != Side::None || hasTwin(child))
            score -= 3.0;
        return score;
    }

    /// What there are two of is no head.
    bool hasTwin(std::size_t child) const
    {
        const std::size_t fork = m_tree.parentOf(child);
        const double span = m_tree.bones[child].span;
        for (std::size_t i = 0; i < m_tree.bones[fork].childCount; ++i) {
            const std::size_t other = m_tree.child(fork, i);
            if (other != child && !isTaken(other) &&
                std::fabs(m_tree.bones[other].span - span) < kTwin * span && !m_tree.bones[other].isEnd)
                return true;
        }
        return false;
    }

    void assignHead(std::vector<std::size_t>& spine)
    {
        Chain chain = headChain(spine);
        std::vector<Station>& stations = chain.stations;
        const auto beyond = std::find_if(stations.begin(), stations.end(),
                                         [](const Station& station) { return station.isBeyond; });
        const double crown = stations.empty() ? 0.0 : stations.back().at;
        stations.erase(beyond, stations.end());
        if (stations.empty())
            return;
        if (stations.size() == 1 && isNeck(stations.front().end)) {
            m_assignment.put("Neck", stations.front().end, "it is over the arms");
            return;
        }
        const std::size_t head = headAmong(stations, crown);
        m_assignment.put("Head", stations[head].end, "it ends the chain over the arms");
        if (head > 0)
            m_assignment.put("Neck", stations[neckAmong(stations, head)].joint, "it bears the head");
        else if (spine.size() > 1 && isNeck(spine.back())) {
            m_assignment.put("Neck", spine.back(), "it bears the head and the arms");
            spine.pop_back();
        }
    }

    /// By name, else where the face begins to fork, else the last joint that is not the crown.
    std::size_t headAmong(const std::vector<Station>& stations, double crown) const
    {
        for (std::size_t i = 0; i < stations.size(); ++i) {
            if (m_evidence.hints[stations[i].end].says(Part::Head))
                return i;
        }
        for (std::size_t i = 1; i + 1 < stations.size(); ++i) {
            if (m_tree.bones[stations[i].joint].childCount > 2)
                return i;
        }
        const std::size_t last = stations.size() - 1;
        if (last == 0 || m_tree.bones[stations[last].joint].varies)
            return last;
        if (last == 1)
            return crown - stations[last].at < kNoCrown * crown ? 0 : 1;
        const double step = stations[last].at - stations[last - 1].at;
        const bool isCrown =
            step > kFarFromNeck * stations[last - 1].at || crown - stations[last].at < kStubbyCrown * crown;
        return isCrown ? last - 1 : last;
    }

    /// By name, else the first one that is not where the arms hang from.
    std::size_t neckAmong(const std::vector<Station>& stations, std::size_t head) const
    {
        const auto known = m_table.joints.find("Neck");
        std::size_t neck = head;
        for (std::size_t i = head; i-- > 0;) {
            if (known != m_table.joints.end() && known->second == stations[i].joint)
                return i;
            if (stations[i].at > 0.0 || neck == head)
                neck = i;
        }
        return neck;
    }

    bool isNeck(std::size_t joint) const
    {
        const NameHint& hint = m_evidence.hints[joint];
        return hint.says(Part::Neck) && !hint.says(Part::Spine) && !hint.mayBe(Part::Head);
    }

    /// What the tables say of a long spine counts where it takes in the joint that bears the arms, and goes
    /// up.
    bool tableFits(const std::vector<std::size_t>& spine) const
    {
        std::size_t next = 0;
        bool hasTop = false;
        for (const char* name : kSpine) {
            const auto found = m_table.joints.find(name);
            if (found == m_table.joints.end())
                continue;
            while (next < spine.size() && spine[next] != found->second)
                ++next;
            if (next == spine.size())
                return false;
            hasTop = spine[next] == spine.back();
            ++next;
        }
        return hasTop;
    }

    void assignSpine(const std::vector<std::size_t>& spine)
    {
        const std::string reason = "it is between the legs' fork and the arms'";
        if (spine.empty())
            return;
        if (spine.size() > kSpine.size() && tableFits(spine)) {
            for (const char* name : kSpine) {
                const auto found = m_table.joints.find(name);
                if (found != m_table.joints.end())
                    m_assignment.put(name, found->second, reason);
            }
            return;
        }
        // Of five the lowest is in the pelvis already; of more the ends and some between them are taken.
        const std::size_t lowest = spine.size() == kSpine.size() + 1 ? 1 : 0;
        const std::size_t steps = spine.size() - 1 - lowest;
        const std::size_t count = std::min(kSpine.size(), spine.size());
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t from = count == 1 ? 0 : lowest + (i * steps + (count - 1) / 2) / (count - 1);
            m_assignment.put(kSpine[i], spine[from], reason);
        }
    }

    Assignment& m_assignment;
    const Evidence& m_evidence;
    const BoneTree& m_tree;
    const Body& m_body;
    const JointMatching& m_table;
};

}  // namespace

void assignTrunk(Assignment& assignment, const Evidence& evidence, const Body& body,
                 const JointMatching& table)
{
    TrunkAssigner(assignment, evidence, body, table).assign();
}

}  // namespace KivReader
