#include "host/KivReader/humanoid/recognition/personcheck.h"

#include <algorithm>
#include <cmath>

namespace KivReader {

namespace {

constexpr double kLevel = 0.35;  ///< cosine: what a trunk that stands over its legs does not fall below
constexpr double kFewDoubts = 2.0;

/// A proportion of a body: within the doubtful range nothing is said, out of it there is a doubt, and far out
/// of it two.
struct Range
{
    const char* what;
    double low, high;
};

constexpr Range kShinToThigh = {"shin to thigh", 0.6, 1.5};
constexpr Range kForearmToUpperArm = {"forearm to upper arm", 0.5, 1.5};
constexpr Range kArmToLeg = {"arm to leg", 0.4, 0.88};
constexpr Range kTrunkToLeg = {"trunk to leg", 0.25, 1.3};
constexpr double kFarOut = 1.35;

class Checker
{
public:
    Checker(const Evidence& evidence, const std::vector<LimbPair>& pairs, const Body& body)
        : m_evidence(evidence), m_pairs(pairs), m_body(body)
    {}

    PersonCheck check()
    {
        const PairFit& legs = m_body.legs.asLegs;
        const PairFit& arms = m_body.arms.asArms;
        const double leg = legs.length();
        look(kShinToThigh, (legs.one.lower + legs.other.lower) / (legs.one.upper + legs.other.upper));
        look(kForearmToUpperArm, (arms.one.lower + arms.other.lower) / (arms.one.upper + arms.other.upper));
        look(kArmToLeg, arms.length() / leg);
        look(kTrunkToLeg, m_body.trunk / leg);
        lookAtPosture();
        lookAtOtherLimbs();
        lookForBeasts();
        if (m_doubts > kFewDoubts)
            m_check.whyNot = "it is not built like a person: " + told();
        m_check.confidence = std::max(0.3, 1.0 - 0.2 * m_doubts);
        return std::move(m_check);
    }

private:
    void doubt(double weight, const std::string& reason)
    {
        m_doubts += weight;
        m_check.doubts.push_back(reason);
    }

    std::string told() const
    {
        std::string text;
        for (const std::string& reason : m_check.doubts)
            text += (text.empty() ? "" : "; ") + reason;
        return text;
    }

    void look(const Range& range, double value)
    {
        const double off = std::max(range.low / value, value / range.high);
        if (off > 1.0)
            doubt(off > kFarOut ? 2.0 : 1.0,
                  std::string(range.what) + " is " + std::to_string(value).substr(0, 4));
    }

    osg::Vec3d place(std::size_t frame, const Chain& chain, int index) const
    {
        return m_evidence.posed.place(frame, chain.stations[static_cast<std::size_t>(index)].joint);
    }

    /// Cosine between the trunk and what the legs point away from, the middle one of the frames.
    double uprightness() const
    {
        std::vector<double> cosines;
        const PairFit& legs = m_body.legs.asLegs;
        const PairFit& arms = m_body.arms.asArms;
        for (std::size_t i = 0; i < m_evidence.posed.frames.size(); ++i) {
            osg::Vec3d down =
                place(i, m_body.legs.one, legs.one.end) - place(i, m_body.legs.one, legs.one.root) +
                place(i, m_body.legs.other, legs.other.end) - place(i, m_body.legs.other, legs.other.root);
            osg::Vec3d up =
                place(i, m_body.arms.one, arms.one.root) + place(i, m_body.arms.other, arms.other.root) -
                place(i, m_body.legs.one, legs.one.root) - place(i, m_body.legs.other, legs.other.root);
            down.normalize();
            up.normalize();
            cosines.push_back(-(up * down));
        }
        std::sort(cosines.begin(), cosines.end());
        return cosines[cosines.size() * 3 / 4];
    }

    void lookAtPosture()
    {
        if (m_evidence.posed.isMotion && uprightness() < kLevel)
            doubt(1.0, "its trunk lies across its legs");
    }

    /// Further pairs from the same forks that are about as long as the legs: spiders and crabs have them.
    void lookAtOtherLimbs()
    {
        const double leg = m_body.legs.asLegs.length();
        const auto others = std::count_if(m_pairs.begin(), m_pairs.end(), [&](const LimbPair& pair) {
            return pair.fork == m_body.legs.fork && pair.one.first != m_body.legs.one.first &&
                   pair.one.first != m_body.legs.other.first && pair.other.first != m_body.legs.one.first &&
                   pair.other.first != m_body.legs.other.first && pair.asLegs.symmetry > -1.0 &&
                   pair.asLegs.length() > 0.7 * leg && pair.asLegs.length() < 1.4 * leg;
        });
        if (others > 0)
            doubt(2.0, "more limbs like the legs hang from the same joint");
    }

    void lookForBeasts()
    {
        const auto beast = std::find_if(m_evidence.hints.begin(), m_evidence.hints.end(),
                                        [](const NameHint& hint) { return hint.isBeast; });
        if (beast != m_evidence.hints.end())
            doubt(1.0, "a joint is called like a part of an animal");
    }

    const Evidence& m_evidence;
    const std::vector<LimbPair>& m_pairs;
    const Body& m_body;
    PersonCheck m_check;
    double m_doubts = 0.0;
};

}  // namespace

PersonCheck checkPerson(const Evidence& evidence, const std::vector<LimbPair>& pairs, const Body& body)
{
    return Checker(evidence, pairs, body).check();
}

std::string whyNoBody(const Evidence& evidence, const std::vector<LimbPair>& pairs)
{
    const std::vector<BoneTree::Bone>& bones = evidence.tree.bones;
    const bool forks = std::any_of(bones.begin(), bones.end(),
                                   [](const BoneTree::Bone& bone) { return bone.childCount > 1; });
    if (!forks)
        return "its joints are one chain, without legs or arms";
    if (evidence.tree.size <= 0.0)
        return "its bones have no length";
    if (pairs.empty())
        return "no two limbs are alike: there are neither legs nor arms";
    return "there are no two legs and two arms on one trunk";
}

}  // namespace KivReader
