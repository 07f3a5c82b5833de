// The way of one foot through a walk: planted, rolling over the toes, swinging, landing on the heel.
#pragma once

#include <osg/Vec3d>
#include <vector>

#include "tools/makemotion/bodypose.h"

namespace KivMotion {

/// Where the sole of the rest figure's foot touches the ground, relative to the ankle.
struct Sole
{
    double ankleHeight = 8.5;
    double heel = -5.5;  ///< along Z
    double toe = 13.5;   ///< where the foot turns when the heel is up; the toe's end is rounded
};

/// One stay on the ground. Times in seconds, in the order of the members.
struct Plant
{
    osg::Vec3d ankle;  ///< while the foot is flat
    double yaw = 0;
    double strike = 0;   ///< the heel touches the ground
    double flat = 0;     ///< the whole sole does, and stays
    double heelOff = 0;  ///< the heel leaves the ground
    double toeOff = 0;   ///< the toes do
    double strikePitch = 0;
    double toeOffPitch = 0;  ///< positive: how far the heel is up when the toes leave
};

class FootPath
{
public:
    explicit FootPath(std::vector<Plant> plants) : m_plants(std::move(plants)) {}

    FootPlacement at(double time) const;
    const std::vector<Plant>& plants() const { return m_plants; }

private:
    FootPlacement onGround(const Plant& plant, double time) const;
    FootPlacement swinging(const Plant& from, const Plant& to, double time) const;

    /// How much higher the foot must be for its sole to be `wanted` above the ground.
    double clearance(const FootPlacement& foot, double wanted) const;

    std::vector<Plant> m_plants;
    Sole m_sole;
};

}  // namespace KivMotion
