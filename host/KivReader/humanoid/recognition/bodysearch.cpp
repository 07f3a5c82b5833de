#include "host/KivReader/humanoid/recognition/bodysearch.h"

#include <algorithm>
#include <cmath>

namespace KivReader {

namespace {

constexpr double kArmToLeg = 0.61;
constexpr double kArmToLegSpread = 0.2;  ///< of the logarithm; so below
constexpr double kTrunkToLeg = 0.8;      ///< up to the upper arms
constexpr double kTrunkToLegSpread = 0.45;
constexpr double kHeadToLeg = 0.35;
constexpr double kHeadSpread = 0.8;
constexpr double kShortestTrunk = 0.25;  ///< of the legs
constexpr double kForksApart = 0.1;      ///< of the legs
constexpr double kForksTogether = 3.0;
constexpr double kRootAtLegs = 0.7;
constexpr double kNoHead = -1.5;
constexpr double kTail = 0.5;  ///< what might be a head, on the legs' fork, counts against it
constexpr double kNamedHead = 2.5;

double usualInABody(double value, double typical, double spread, double worst)
{
    const double off = std::log(std::max(value, 1e-9) / typical) / spread;
    return std::max(-0.5 * off * off, worst);
}

class Search
{
public:
    explicit Search(const Evidence& evidence) : m_evidence(evidence), m_tree(evidence.tree) {}

    /// @return false where the two pairs are on no trunk.
    bool join(const LimbPair& legs, const LimbPair& arms, Body& body) const
    {
        const std::size_t meeting = m_tree.commonAncestor(legs.fork, arms.fork);
        if (isOn(legs, arms.fork) || isOn(arms, legs.fork) || haveALimbInCommon(legs, arms) ||
            legs.asLegs.score < -1e8 || arms.asArms.score < -1e8)
            return false;
        const double leg = legs.asLegs.length();
        const double forks = m_tree.way(meeting, legs.fork) + m_tree.way(meeting, arms.fork);
        body.trunk = forks + beforeArms(arms);
        if (body.trunk < kShortestTrunk * leg)
            return false;
        body.score =
            legs.asLegs.score + arms.asArms.score - (forks < kForksApart * leg ? kForksTogether : 0.0);
        body.score += usualInABody(arms.asArms.length() / leg, kArmToLeg, kArmToLegSpread, -8.0);
        body.score += usualInABody(body.trunk / leg, kTrunkToLeg, kTrunkToLegSpread, -6.0);
        body.score +=
            headOn(arms, legs, leg) - (legs.fork == arms.fork ? 0.0 : kTail * headOn(legs, arms, leg));
        body.score += meeting == legs.fork ? kRootAtLegs : 0.0;
        return true;
    }

private:
    bool isOn(const LimbPair& limbs, std::size_t fork) const
    {
        return m_tree.isBelow(fork, limbs.one.first) || m_tree.isBelow(fork, limbs.other.first);
    }

    /// From the fork to the upper arms.
    static double beforeArms(const LimbPair& arms)
    {
        const auto way = [](const Chain& chain, const LimbFit& fit) {
            return chain.stations[static_cast<std::size_t>(fit.root)].at;
        };
        return (way(arms.one, arms.asArms.one) + way(arms.other, arms.asArms.other)) / 2.0;
    }

    static bool begins(const LimbPair& limbs, std::size_t joint)
    {
        return joint == limbs.one.first || joint == limbs.other.first;
    }

    /// Where there is no spine, legs and arms hang from one joint.
    static bool haveALimbInCommon(const LimbPair& legs, const LimbPair& arms)
    {
        return begins(legs, arms.one.first) || begins(legs, arms.other.first);
    }

    /// How likely the likeliest of the fork's other chains is a head; the worst for none.
    double headOn(const LimbPair& limbs, const LimbPair& others, double leg) const
    {
        double best = kNoHead;
        for (std::size_t i = 0; i < m_tree.bones[limbs.fork].childCount; ++i) {
            const std::size_t child = m_tree.child(limbs.fork, i);
            if (begins(limbs, child) || begins(others, child) || m_tree.isBelow(others.fork, child) ||
                m_tree.bones[child].isEnd)
                continue;
            const NameHint& hint = m_evidence.hints[child];
            double score = 1.0 + usualInABody(m_tree.bones[child].span / leg, kHeadToLeg, kHeadSpread, -2.0);
            if (hint.mayBe(Part::Neck) || hint.mayBe(Part::Head))
                score += kNamedHead;
            best = std::max(best, score);
        }
        return best;
    }

    const Evidence& m_evidence;
    const BoneTree& m_tree;
};

}  // namespace

std::optional<Body> findBody(const Evidence& evidence, const std::vector<LimbPair>& pairs)
{
    std::optional<Body> best;
    const Search search(evidence);
    const LimbPair* legsOfBest = nullptr;
    const LimbPair* armsOfBest = nullptr;
    for (const LimbPair& legs : pairs) {
        for (const LimbPair& arms : pairs) {
            Body body;
            if (&legs == &arms || !search.join(legs, arms, body) || (best && body.score <= best->score))
                continue;
            best = body;
            legsOfBest = &legs;
            armsOfBest = &arms;
        }
    }
    if (best) {
        best->legs = *legsOfBest;
        best->arms = *armsOfBest;
    }
    return best;
}

}  // namespace KivReader
