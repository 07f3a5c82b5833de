#include "host/KivReader/humanoid/recognition/personcheck.h"

#include <algorithm>
#include <cmath>

namespace KivReader {

namespace {

/// A proportion of a body: out of the range there is a doubt, far out of it two.
struct Range
{
    const char* what;
    double low, high;
};

constexpr Range kShinToThigh = {"shin to thigh", 0.6, 1.5};
constexpr Range kForearmToUpperArm = {"forearm to upper arm", 0.5, 1.5};
constexpr Range kArmToLegRange = {"arm to leg", 0.4, 0.95};
constexpr Range kTrunkToLegRange = {"trunk to leg", 0.35, 1.5};
constexpr double kFarOut = 1.35;

constexpr double kUprightTrunk =
    0.35;                              ///< cosine: a trunk that stands over its legs is not below it for long
constexpr double kLongForelegs = 0.8;  ///< of the legs
constexpr double kAcross = 1.2;        ///< how much each of these weighs
constexpr double kAcrossUnnamed = 0.7;
constexpr double kForelegs = 0.6;
constexpr double kBeast = 0.8;
constexpr double kMoreLimbs = 2.0;
constexpr double kUnlikeEachOther = 1.0;
constexpr double kTwigs = 2.0;
constexpr int kMostForks = 5;  ///< of the eight places where limbs begin and bend
constexpr double kTooMuch = 1.9;

class Checker
{
public:
    Checker(const Evidence& evidence, const std::vector<LimbPair>& pairs, const Body& body)
        : m_evidence(evidence),
          m_pairs(pairs),
          m_body(body),
          m_legs(body.legs.asLegs),
          m_arms(body.arms.asArms)
    {}

    PersonCheck check()
    {
        look(kShinToThigh, m_legs.one.lower + m_legs.other.lower, m_legs.one.upper + m_legs.other.upper);
        look(kForearmToUpperArm, m_arms.one.lower + m_arms.other.lower,
             m_arms.one.upper + m_arms.other.upper);
        look(kArmToLegRange, m_arms.length(), m_legs.length());
        look(kTrunkToLegRange, m_body.trunk, m_legs.length());
        lookForTwigs();
        // Where names tell what everything is, only what makes an animal makes no person of it.
        const double unnamed = 1.0 - named();
        m_doubts *= unnamed;
        lookForAnimal(unnamed);
        lookAtOtherLimbs();
        if (m_doubts > kTooMuch)
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

    void look(const Range& range, double value, double of)
    {
        const double ratio = value / of;
        const double off = std::max(range.low / ratio, ratio / range.high);
        if (!(off <= 1.0))
            doubt(off > kFarOut ? 2.0 : 1.0,
                  std::string(range.what) + " is " + std::to_string(ratio).substr(0, 4));
    }

    bool forks(const Chain& chain, int index) const
    {
        return chain.stations[static_cast<std::size_t>(index)].fan > 1;
    }

    /// Limbs go on in one chain to the hands and the feet; only some of them may have more to carry.
    void lookForTwigs()
    {
        const auto forksOf = [&](const Chain& chain, const LimbFit& fit) {
            return (forks(chain, fit.root) ? 1 : 0) + (forks(chain, fit.bend) ? 1 : 0);
        };
        const int count = forksOf(m_body.legs.one, m_legs.one) + forksOf(m_body.legs.other, m_legs.other) +
                          forksOf(m_body.arms.one, m_arms.one) + forksOf(m_body.arms.other, m_arms.other);
        if (count >= kMostForks)
            doubt(kTwigs, "its limbs branch");
    }

    const NameHint& hint(const Chain& chain, int index) const
    {
        return m_evidence.hints[chain.stations[static_cast<std::size_t>(index)].named];
    }

    /// How many of the eight joints that count most are called what they are taken for: 0 to 1.
    double named() const
    {
        int count = 0;
        const auto look = [&](const Chain& chain, const LimbFit& fit, Part root, Part bend) {
            count += hint(chain, fit.root).mayBe(root) && hint(chain, fit.root).side != Side::None ? 1 : 0;
            count += hint(chain, fit.bend).mayBe(bend) && hint(chain, fit.bend).side != Side::None ? 1 : 0;
        };
        look(m_body.legs.one, m_legs.one, Part::Thigh, Part::Shin);
        look(m_body.legs.other, m_legs.other, Part::Thigh, Part::Shin);
        look(m_body.arms.one, m_arms.one, Part::UpperArm, Part::ForeArm);
        look(m_body.arms.other, m_arms.other, Part::UpperArm, Part::ForeArm);
        return count / 8.0;
    }

    osg::Vec3d place(std::size_t frame, const Chain& chain, int index) const
    {
        return m_evidence.posed.place(frame, chain.stations[static_cast<std::size_t>(index)].joint);
    }

    osg::Vec3d along(std::size_t frame, const Chain& chain, const LimbFit& fit) const
    {
        return place(frame, chain, fit.end) - place(frame, chain, fit.root);
    }

    /// Cosine between the trunk and what the legs point away from, in the more upright frames.
    double uprightness() const
    {
        std::vector<double> cosines;
        for (std::size_t i = 0; i < m_evidence.posed.frames.size(); ++i) {
            osg::Vec3d down =
                along(i, m_body.legs.one, m_legs.one) + along(i, m_body.legs.other, m_legs.other);
            osg::Vec3d up =
                place(i, m_body.arms.one, m_arms.one.root) + place(i, m_body.arms.other, m_arms.other.root) -
                place(i, m_body.legs.one, m_legs.one.root) - place(i, m_body.legs.other, m_legs.other.root);
            down.normalize();
            up.normalize();
            cosines.push_back(-(up * down));
        }
        std::sort(cosines.begin(), cosines.end());
        return cosines[cosines.size() * 3 / 4];
    }

    void lookForAnimal(double unnamed)
    {
        if (m_evidence.posed.isMotion && uprightness() < kUprightTrunk)
            doubt(kAcross + kAcrossUnnamed * unnamed, "its trunk lies across its legs");
        if (m_arms.length() > kLongForelegs * m_legs.length())
            doubt(kForelegs, "its arms are as long as legs");
        const auto beast = std::find_if(m_evidence.hints.begin(), m_evidence.hints.end(),
                                        [](const NameHint& hint) { return hint.isBeast; });
        if (beast != m_evidence.hints.end())
            doubt(kBeast,
                  "joint " +
                      m_evidence.figure.joints[static_cast<std::size_t>(beast - m_evidence.hints.begin())]
                          .name +
                      " is an animal's by its name");
        if (m_legs.symmetry < -4.0 || m_arms.symmetry < -4.0)
            doubt(kUnlikeEachOther, "left and right are of different lengths");
    }

    bool shares(const LimbPair& pair) const
    {
        const std::size_t one = m_body.legs.one.first;
        const std::size_t other = m_body.legs.other.first;
        return pair.one.first == one || pair.one.first == other || pair.other.first == one ||
               pair.other.first == other;
    }

    /// Further pairs from the same fork that are about as long as the legs: spiders and crabs have them.
    void lookAtOtherLimbs()
    {
        const double leg = m_legs.length();
        const auto others = std::count_if(m_pairs.begin(), m_pairs.end(), [&](const LimbPair& pair) {
            return pair.fork == m_body.legs.fork && !shares(pair) && pair.asLegs.symmetry > -1.0 &&
                   pair.asLegs.length() > 0.7 * leg && pair.asLegs.length() < 1.4 * leg;
        });
        if (others > 0)
            doubt(kMoreLimbs, "more limbs like the legs hang from the same joint");
    }

    const Evidence& m_evidence;
    const std::vector<LimbPair>& m_pairs;
    const Body& m_body;
    const PairFit& m_legs;
    const PairFit& m_arms;
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
