#pragma once

#include <osg/Vec3d>

#include <cstddef>
#include <string>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"
#include "KivCommonDef/stickcontact.h"

namespace KivFrameData {

/// Decides which feet, hands and props touch the ground: a point that is low and slow does, until it is
/// clearly higher or faster (hysteresis). Positions are Y-up, in centimetres; the ground is y = 0.
class KIV_FRAMEDATA_API ContactTracker
{
public:
    /// Heights in centimetres above the point's lowest place, speeds in centimetres per second.
    static constexpr double kTouchHeight = 3.0;
    static constexpr double kLeaveHeight = 5.5;
    static constexpr double kTouchSpeed = 35.0;
    static constexpr double kLeaveSpeed = 70.0;

    /// @param joints names without qualifier; those that can touch are picked.
    explicit ContactTracker(const std::vector<std::string>& joints);

    /// Learns from a pose of the motion how low a point comes. A joint lies inside the body: an ankle stands
    /// some centimetres above the sole.
    void learn(const std::vector<osg::Vec3d>& positions);

    /// Forgets the last pose and every touch; what was learnt stays.
    void restart();

    /// Takes the next pose. The first one after a restart has no speed: it touches by height alone.
    void advance(const std::vector<osg::Vec3d>& positions, double seconds);

    /// Moves the points to a pose without judging contacts again.
    void place(const std::vector<osg::Vec3d>& positions);

    /// Which joints can touch, as indices, in their order.
    std::vector<std::size_t> joints() const;

    /// In metres, Y-up, in the order of the joints.
    const std::vector<KivCommonDef::KIV_STICKCONTACT>& contacts() const { return m_contacts; }

private:
    struct Point
    {
        std::size_t joint = 0;
        double deepest = 0.0;  ///< how far above the ground the joint may be when its skin touches
        double lowest = 1e9;
        osg::Vec3d last;
        bool touches = false;
    };

    std::vector<Point> m_points;
    std::vector<KivCommonDef::KIV_STICKCONTACT> m_contacts;
    bool m_started = false;
};

}  // namespace KivFrameData
