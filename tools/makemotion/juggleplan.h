// Two balls between two hands: who throws when, how the balls fly and how the hands go about it.
#pragma once

#include <array>
#include <osg/Vec3d>
#include <vector>

#include "tools/makemotion/curve.h"
#include "tools/makemotion/rig.h"

namespace KivMotion {

/// A ball in the air. Seconds and centimetres, Y-up.
struct Flight
{
    Side ball = Side::Left;  ///< named after the hand that it starts in
    Side thrower = Side::Left;
    double start = 0;
    double end = 0;
    osg::Vec3d from;
    osg::Vec3d to;

    osg::Vec3d velocityAt(double time) const;
    osg::Vec3d positionAt(double time) const;
};

/// The rhythm of three balls with one left out: each ball flies from hand to hand and back, six times.
class JugglePlan
{
public:
    JugglePlan();

    /// The flight that the ball is on, or null while a hand holds it.
    const Flight* flightOf(Side ball, double time) const;
    /// The hand that holds the ball, or will catch it.
    Side holderOf(Side ball, double time) const;
    /// Where the hand keeps a ball, or would if it had one.
    osg::Vec3d holdPoint(Side hand, double time) const;
    const std::vector<Flight>& flights() const { return m_flights; }
    double end() const { return m_end; }

private:
    void planFlights();
    void planHand(Side hand);

    std::vector<Flight> m_flights;
    std::array<std::array<Curve, 3>, 2> m_holds;
    double m_end = 0;
};

/// Of a falling ball, cm/s².
constexpr double kGravity = 981.0;

}  // namespace KivMotion
