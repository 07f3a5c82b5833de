#include <cmath>

#include "host/KivReader/humanoid/recognition/assignment.h"

namespace KivReader {

namespace {

constexpr double kKnee = 3.0;  ///< weights of what points forward
constexpr double kToes = 0.7;
constexpr double kElbow = 0.3;
constexpr double kTravel = 0.02;
constexpr std::size_t kFramesThatTellSides = 10;
constexpr double kContradiction = 0.5;  ///< of all votes

osg::Vec3d ofLengthOne(osg::Vec3d vector)
{
    vector.normalize();
    return vector;
}

/// A limb's joints in one frame.
struct PosedLimb
{
    osg::Vec3d root, bend, end, tip;

    /// How far the middle joint stands off the line between the others.
    osg::Vec3d bow() const
    {
        const osg::Vec3d line = ofLengthOne(end - root);
        const osg::Vec3d off = bend - root;
        return off - line * (off * line);
    }
    osg::Vec3d foot() const
    {
        const osg::Vec3d shin = ofLengthOne(end - bend);
        const osg::Vec3d off = tip - end;
        return off - shin * (off * shin);
    }
};

class SideFinder
{
public:
    SideFinder(const Evidence& evidence, const Body& body) : m_evidence(evidence), m_body(body) {}

    Sides find() const
    {
        const PosedFrames& posed = m_evidence.posed;
        double forLegs = 0.0;
        double all = 0.0;
        double sameWay = 0.0;
        for (std::size_t frame = 0; frame < posed.frames.size(); ++frame) {
            const double vote = voteOf(frame);
            forLegs += vote;
            all += std::fabs(vote);
            sameWay += ofLengthOne(acrossLegs(frame)) * ofLengthOne(acrossArms(frame));
        }
        return decided(forLegs, all, sameWay);
    }

private:
    PosedLimb posed(std::size_t frame, const Chain& chain, const LimbFit& fit) const
    {
        const auto place = [&](int index) {
            return m_evidence.posed.place(frame, chain.stations[static_cast<std::size_t>(index)].joint);
        };
        const int last = static_cast<int>(chain.stations.size()) - 1;
        return {place(fit.root), place(fit.bend), place(fit.end),
                place(fit.after == LimbFit::kNone ? last : fit.after)};
    }
    PosedLimb leg(std::size_t frame, bool isFirst) const
    {
        const PairFit& fit = m_body.legs.asLegs;
        return isFirst ? posed(frame, m_body.legs.one, fit.one) : posed(frame, m_body.legs.other, fit.other);
    }
    PosedLimb arm(std::size_t frame, bool isFirst) const
    {
        const PairFit& fit = m_body.arms.asArms;
        return isFirst ? posed(frame, m_body.arms.one, fit.one) : posed(frame, m_body.arms.other, fit.other);
    }
    osg::Vec3d acrossLegs(std::size_t frame) const { return leg(frame, true).root - leg(frame, false).root; }
    osg::Vec3d acrossArms(std::size_t frame) const { return arm(frame, true).root - arm(frame, false).root; }
    osg::Vec3d middleOfLegs(std::size_t frame) const
    {
        return (leg(frame, true).root + leg(frame, false).root) * 0.5;
    }

    /// Positive where the first leg is the left one, which is where up × front points.
    double voteOf(std::size_t frame) const
    {
        const osg::Vec3d up =
            ofLengthOne((arm(frame, true).root + arm(frame, false).root) * 0.5 - middleOfLegs(frame));
        osg::Vec3d front;
        for (const bool isFirst : {true, false}) {
            const PosedLimb leg = this->leg(frame, isFirst);
            const double length = m_body.legs.asLegs.length();
            front += leg.bow() * (kKnee / length) + leg.foot() * (kToes / length);
            front -= arm(frame, isFirst).bow() * (kElbow / length);
        }
        if (frame > 0)
            front += ofLengthOne(middleOfLegs(frame) - middleOfLegs(frame - 1)) * kTravel;
        return ofLengthOne(acrossLegs(frame)) * (up ^ front);
    }

    Sides decided(double forLegs, double all, double sameWay) const
    {
        Sides sides;
        const double tells = all > 0.0 ? forLegs / all : 0.0;
        const int named = m_body.legs.sides + (sameWay >= 0.0 ? 1 : -1) * m_body.arms.sides;
        sides.firstLegIsLeft = named != 0 ? named > 0 : forLegs >= 0.0;
        sides.firstArmIsLeft = sides.firstLegIsLeft == (sameWay >= 0.0);
        if (m_body.legs.sides != 0)
            sides.firstLegIsLeft = m_body.legs.sides > 0;
        if (m_body.arms.sides != 0)
            sides.firstArmIsLeft = m_body.arms.sides > 0;
        sides.confidence = named != 0 ? 1.0 : 0.4 + 0.5 * std::fabs(tells);
        sides.reason = named != 0 ? "its name tells the side" : "knees and feet tell the side";
        const double forNamed = sides.firstLegIsLeft ? tells : -tells;
        if (named != 0 && forNamed < -kContradiction &&
            m_evidence.posed.frames.size() >= kFramesThatTellSides)
            sides.warning =
                "by its knees and feet the figure has left and right the other way round than by its names";
        return sides;
    }

    const Evidence& m_evidence;
    const Body& m_body;
};

}  // namespace

Sides findSides(const Evidence& evidence, const Body& body)
{
    return SideFinder(evidence, body).find();
}

}  // namespace KivReader
