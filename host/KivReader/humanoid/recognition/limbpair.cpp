#include "host/KivReader/humanoid/recognition/limbpair.h"

#include <algorithm>
#include <cmath>

namespace KivReader {

namespace {

constexpr std::size_t kMostBranches = 8;  ///< of a fork: the longest ones
constexpr std::size_t kMostPairs = 24;
constexpr double kAsLong = 0.6;         ///< the shorter of a pair to the longer one
constexpr double kNamedAsLong = 0.25;   ///< where both are called limbs
constexpr int kNamedLimb = 2;           ///< joints with such names
constexpr double kWorthALook = 0.3;     ///< of the longest pair
constexpr double kLengthSpread = 0.12;  ///< logarithm: how far left and right usually differ
constexpr double kWorstUnlike = -3.0;   ///< per part
constexpr double kSidesAgree = 2.0;
constexpr double kSidesDisagree = -4.0;

/// A pair by the length of its shorter way down.
struct Candidate
{
    std::size_t fork, one, other;
    double reach;
};

std::vector<std::size_t> longestBranches(const BoneTree& tree, std::size_t fork)
{
    std::vector<std::size_t> branches;
    for (std::size_t i = 0; i < tree.bones[fork].childCount; ++i)
        branches.push_back(tree.child(fork, i));
    const std::size_t kept = std::min(kMostBranches, branches.size());
    std::partial_sort(branches.begin(), branches.begin() + static_cast<std::ptrdiff_t>(kept), branches.end(),
                      [&](std::size_t a, std::size_t b) { return tree.bones[a].span > tree.bones[b].span; });
    branches.resize(kept);
    return branches;
}

std::vector<Candidate> candidates(const BoneTree& tree)
{
    std::vector<Candidate> found;
    for (std::size_t fork = 0; fork < tree.bones.size(); ++fork) {
        if (tree.bones[fork].childCount < 2 || tree.bones[fork].reach < kWorthALook / 4.0 * tree.size)
            continue;
        const std::vector<std::size_t> branches = longestBranches(tree, fork);
        for (std::size_t i = 0; i < branches.size(); ++i) {
            for (std::size_t k = i + 1; k < branches.size(); ++k) {
                const BoneTree::Bone& one = tree.bones[branches[i]];
                const BoneTree::Bone& other = tree.bones[branches[k]];
                const bool areNamed = std::min(one.words, other.words) >= kNamedLimb;
                if (other.span >= (areNamed ? kNamedAsLong : kAsLong) * one.span)
                    found.push_back({fork, branches[i], branches[k], other.span});
            }
        }
    }
    std::sort(found.begin(), found.end(),
              [](const Candidate& a, const Candidate& b) { return a.reach > b.reach; });
    const double least = found.empty() ? 0.0 : kWorthALook * found.front().reach;
    while (!found.empty() && (found.size() > kMostPairs || found.back().reach < least))
        found.pop_back();
    return found;
}

int sideOf(const Evidence& evidence, const Chain& chain)
{
    int votes = 0;
    for (const Station& station : chain.stations) {
        const Side side = evidence.hints[station.named].side;
        votes += side == Side::Left ? 1 : side == Side::Right ? -1 : 0;
    }
    return votes;
}

double unlike(double one, double other)
{
    const double off = std::log(std::max(one, 1e-9) / std::max(other, 1e-9)) / kLengthSpread;
    return std::max(-0.5 * off * off, kWorstUnlike);
}

PairFit bestFit(const Evidence& evidence, const LimbPair& pair, Limb limb)
{
    PairFit best;
    best.score = -1e9;
    const std::vector<LimbFit> others = fitLimb(evidence, pair.other, limb);
    for (const LimbFit& one : fitLimb(evidence, pair.one, limb)) {
        for (const LimbFit& other : others) {
            PairFit fit;
            fit.one = one;
            fit.other = other;
            fit.symmetry = unlike(one.upper, other.upper) + unlike(one.lower, other.lower);
            fit.score = (one.score + other.score) / 2.0 + fit.symmetry;
            if (fit.score > best.score)
                best = fit;
        }
    }
    return best;
}

}  // namespace

std::vector<LimbPair> findPairs(const Evidence& evidence)
{
    std::vector<LimbPair> pairs;
    for (const Candidate& candidate : candidates(evidence.tree)) {
        LimbPair pair;
        pair.fork = candidate.fork;
        pair.one = chainFrom(evidence, candidate.one);
        pair.other = chainFrom(evidence, candidate.other);
        const int one = sideOf(evidence, pair.one);
        const int other = sideOf(evidence, pair.other);
        pair.sides = one - other;
        const double bySides = one * other < 0 ? kSidesAgree : one * other > 0 ? kSidesDisagree : 0.0;
        pair.asLegs = bestFit(evidence, pair, Limb::Leg);
        pair.asArms = bestFit(evidence, pair, Limb::Arm);
        pair.asLegs.score += bySides;
        pair.asArms.score += bySides;
        if (pair.asLegs.score > -1e8 || pair.asArms.score > -1e8)
            pairs.push_back(std::move(pair));
    }
    return pairs;
}

}  // namespace KivReader
