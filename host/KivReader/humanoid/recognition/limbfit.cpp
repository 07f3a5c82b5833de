#include <algorithm>
#include <cmath>

#include "host/KivReader/humanoid/recognition/limbchain.h"

namespace KivReader {

namespace {

constexpr std::size_t kBestFits = 6;

constexpr double kNamed = 3.0;  ///< points for a joint that is called what it is taken for
constexpr double kPerhapsNamed = 1.2;
constexpr double kMisnamed = 2.5;    ///< points lost for one that is called something else
constexpr double kPassedOver = 1.5;  ///< for a joint of the limb by its name that is taken for nothing
constexpr double kUnseen = 2.0;      ///< for a limb whose end the file does not have
constexpr double kFan = 1.5;         ///< for a limb that ends where fingers begin
constexpr int kFingersOfAHand = 3;
constexpr double kMuchBend = 0.5;  ///< radians
constexpr double kStiff = 0.05;
constexpr double kNeverBends =
    1.0;                          ///< points lost for a knee or an elbow, a hip or a shoulder that is stiff
constexpr double kDivides = 0.5;  ///< and for a joint in the middle of a bone

/// A person's proportions of a limb, and how far they are usual.
struct Proportions
{
    double ratio, ratioSpread;    ///< the lower part to the upper one; the spreads are of logarithms
    double before, beforeSpread;  ///< from the fork to the limb, of both parts together
    double after, afterSpread;    ///< from the limb's end on, the same
    std::array<Part, 5> parts;    ///< before, root, bend, end, after
    Parts all;
};

constexpr Proportions kLeg = {
    1.0,      0.22, 0.12, 0.7, 0.25, 0.9, {Part::Hips, Part::Thigh, Part::Shin, Part::Foot, Part::Toes},
    kLegParts};
constexpr Proportions kArm = {0.88,
                              0.25,
                              0.35,
                              0.8,
                              0.3,
                              0.9,
                              {Part::Collar, Part::UpperArm, Part::ForeArm, Part::Hand, Part::Hand},
                              kArmParts};

/// 0 where it is usual, less the farther from that; never below the worst.
double usualInALimb(double value, double typical, double spread, double worst)
{
    if (value <= 0.0)
        return worst;
    const double off = std::log(value / typical) / spread;
    return std::max(-0.5 * off * off, worst);
}

class Fitter
{
public:
    Fitter(const Evidence& evidence, const Chain& chain, Limb limb)
        : m_evidence(evidence),
          m_stations(chain.stations),
          m_limb(limb),
          m_usual(limb == Limb::Leg ? kLeg : kArm)
    {}

    std::vector<LimbFit> best()
    {
        const int count = static_cast<int>(m_stations.size());
        for (int root = 0; root < count; ++root) {
            for (int bend = root + 1; bend < count; ++bend) {
                for (int end = bend + 1; end < count; ++end)
                    tryAt(root, bend, end);
            }
        }
        const std::size_t kept = std::min(kBestFits, m_fits.size());
        std::partial_sort(m_fits.begin(), m_fits.begin() + static_cast<std::ptrdiff_t>(kept), m_fits.end(),
                          [](const LimbFit& a, const LimbFit& b) { return a.score > b.score; });
        m_fits.resize(kept);
        return std::move(m_fits);
    }

private:
    const Station& station(int index) const { return m_stations[static_cast<std::size_t>(index)]; }
    const NameHint& hint(int index) const { return m_evidence.hints[station(index).named]; }

    void tryAt(int root, int bend, int end)
    {
        if (station(root).isBeyond || station(bend).isBeyond || station(bend).at <= station(root).at)
            return;
        LimbFit fit;
        fit.root = root;
        fit.bend = bend;
        fit.end = end;
        fit.upper = station(bend).at - station(root).at;
        fit.lower = station(end).at - station(bend).at;
        findNeighbours(fit);
        fit.score = byLengths(fit) + byNames(fit) + byBends(fit);
        m_fits.push_back(fit);
    }

    void findNeighbours(LimbFit& fit) const
    {
        if (m_limb == Limb::Arm && fit.root > 0)
            fit.before = collarBefore(fit.root);
        if (m_limb == Limb::Leg && fit.end + 1 < static_cast<int>(m_stations.size()) &&
            !station(fit.end + 1).isBeyond)
            fit.after = fit.end + 1;
    }

    int collarBefore(int root) const
    {
        for (int i = 0; i < root; ++i) {
            if (hint(i).says(Part::Collar))
                return i;
        }
        return station(root - 1).at > 0.0 || hint(root - 1).mayBe(Part::Collar) || station(root - 1).turns
                   ? root - 1
                   : LimbFit::kNone;
    }

    double byLengths(const LimbFit& fit) const
    {
        const double both = fit.length();
        const double last = m_stations[m_stations.size() - (m_stations.back().isUnseen ? 2 : 1)].at;
        const double after = last - station(fit.end).at;
        double score = usualInALimb(fit.lower / fit.upper, m_usual.ratio, m_usual.ratioSpread, -6.0);
        score += usualInALimb(station(fit.root).at / both, m_usual.before, m_usual.beforeSpread, -3.0);
        score += after > 0.0 ? usualInALimb(after / both, m_usual.after, m_usual.afterSpread, -1.5) : -0.5;
        return score + byFans(fit) - (station(fit.end).isBeyond ? 1.0 : 0.0);
    }

    /// Fingers, and toes of some rigs, go out from a limb's end and from nowhere before it.
    double byFans(const LimbFit& fit) const
    {
        double score = station(fit.end).fan >= kFingersOfAHand ? kFan : 0.0;
        for (int i = fit.root; i < fit.end; ++i)
            score -= station(i).fan >= kFingersOfAHand ? 2.0 * kFan : 0.0;
        return score;
    }

    static double named(const NameHint& its, Part part)
    {
        if (its.says(part))
            return kNamed * its.weight;
        if (its.mayBe(part))
            return kPerhapsNamed * its.weight;
        return (its.parts | its.perhaps) != 0 || its.isNever ? -kMisnamed * its.weight : 0.0;
    }

    double byNames(const LimbFit& fit) const
    {
        double score = named(hint(fit.root), m_usual.parts[1]) + named(hint(fit.bend), m_usual.parts[2]) +
                       (station(fit.end).isUnseen ? -kUnseen : named(hint(fit.end), m_usual.parts[3]));
        if (fit.before != LimbFit::kNone && hint(fit.before).mayBe(Part::Collar))
            score += kPerhapsNamed;
        if (fit.after != LimbFit::kNone && hint(fit.after).mayBe(Part::Toes))
            score += kPerhapsNamed;
        for (int i = 0; i < fit.end; ++i) {
            if (i != fit.root && i != fit.bend && i != fit.before)
                score -= passedOver(fit, i);
        }
        return score;
    }

    static double sureness(const NameHint& hint, Part part)
    {
        int meanings = 0;
        for (Parts rest = hint.parts; rest != 0; rest &= rest - 1)
            ++meanings;
        return hint.says(part) ? hint.weight / meanings : 0.0;
    }

    /// What is called like the bone that it lies on divides it, unless it is surer to be where that begins.
    double passedOver(const LimbFit& fit, int index) const
    {
        const int bone = index < fit.root ? 0 : index < fit.bend ? 1 : 2;
        const Part part = m_usual.parts[static_cast<std::size_t>(bone)];
        const NameHint& its = hint(index);
        if ((its.parts & m_usual.all) == 0)
            return 0.0;
        if (!its.says(part))
            return kPassedOver * its.weight;
        const double taken = bone == 0 ? 1.0 : sureness(hint(bone == 1 ? fit.root : fit.bend), part);
        return kNamed * std::max(0.0, sureness(its, part) - taken);
    }

    double byBends(const LimbFit& fit) const
    {
        if (!m_evidence.posed.isMotion)
            return 0.0;
        double score = 0.0;
        for (int i = 0; i < fit.end; ++i) {
            const double bend = std::min(station(i).bend / kMuchBend, 1.0);
            if (i == fit.root || i == fit.bend)
                score += station(i).bend < kStiff ? -kNeverBends : bend;
            else if (i > fit.root)
                score -= kDivides + 2.0 * bend;
        }
        return score;
    }

    const Evidence& m_evidence;
    const std::vector<Station>& m_stations;
    Limb m_limb;
    const Proportions& m_usual;
    std::vector<LimbFit> m_fits;
};

}  // namespace

std::vector<LimbFit> fitLimb(const Evidence& evidence, const Chain& chain, Limb limb)
{
    return Fitter(evidence, chain, limb).best();
}

}  // namespace KivReader
