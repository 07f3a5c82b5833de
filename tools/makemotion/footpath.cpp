#include "tools/makemotion/footpath.h"

#include <algorithm>
#include <cmath>

#include "tools/makemotion/curve.h"

namespace KivMotion {

namespace {

osg::Quat footRotation(double yaw, double pitch)
{
    return Attitude{yaw, pitch, 0}.rotation();
}

}  // namespace

FootPlacement FootPath::at(double time) const
{
    std::size_t last = 0;
    while (last + 1 < m_plants.size() && m_plants[last + 1].strike <= time)
        ++last;
    if (time <= m_plants[last].toeOff || last + 1 == m_plants.size())
        return onGround(m_plants[last], time);
    return swinging(m_plants[last], m_plants[last + 1], time);
}

FootPlacement FootPath::onGround(const Plant& plant, double time) const
{
    FootPlacement foot{plant.ankle, plant.yaw, 0};
    osg::Vec3d pivot;
    if (time < plant.flat) {
        const double u = std::clamp((time - plant.strike) / (plant.flat - plant.strike), 0.0, 1.0);
        foot.pitch = plant.strikePitch * (1 - u * u * (3 - 2 * u));
        pivot = osg::Vec3d(0, -m_sole.ankleHeight, m_sole.heel);
    } else if (time > plant.heelOff) {
        const double u = (time - plant.heelOff) / (plant.toeOff - plant.heelOff);
        foot.pitch = -plant.toeOffPitch * u * u * (1.5 - 0.5 * u);
        pivot = osg::Vec3d(0, -m_sole.ankleHeight, m_sole.toe);
    } else {
        return foot;
    }
    // The pivot stays where it is while the foot is flat; the ankle moves about it.
    foot.ankle += footRotation(plant.yaw, 0) * pivot - footRotation(plant.yaw, foot.pitch) * pivot;
    return foot;
}

FootPlacement FootPath::swinging(const Plant& from, const Plant& to, double time) const
{
    constexpr double kStep = 1e-4;
    const FootPlacement start = onGround(from, from.toeOff), before = onGround(from, from.toeOff - kStep);
    const FootPlacement end = onGround(to, to.strike);
    const osg::Vec3d velocity = (start.ankle - before.ankle) / kStep;
    const double span = to.strike - from.toeOff, middle = from.toeOff + 0.52 * span;
    const double far = std::min(1.0, (to.ankle - from.ankle).length() / 120);

    Curve pitch, height, along, clear;
    clear.addTurn(from.toeOff, 0);
    clear.addTurn(from.toeOff + 0.25 * span, 2);
    clear.addTurn(to.strike - 0.3 * span, 2);
    clear.addTurn(to.strike, 0);
    pitch.add(from.toeOff, start.pitch, (start.pitch - before.pitch) / kStep);
    pitch.add(middle, -4 - 8 * far, 40 + 170 * far);
    pitch.addTurn(to.strike, end.pitch);
    height.add(from.toeOff, start.ankle.y(), velocity.y());
    height.add(middle, m_sole.ankleHeight + 3.2 + 2.2 * far, -12 * far);
    height.addTurn(to.strike, end.ankle.y());
    along.add(from.toeOff, start.ankle.z(), velocity.z());
    along.addTurn(to.strike, end.ankle.z());
    const double turned = ease(time, from.toeOff, to.strike);

    FootPlacement foot;
    foot.pitch = pitch.at(time);
    foot.yaw = from.yaw + (to.yaw - from.yaw) * turned;
    foot.ankle = osg::Vec3d(start.ankle.x() + (end.ankle.x() - start.ankle.x()) * turned, height.at(time),
                            along.at(time));
    foot.ankle.y() += clearance(foot, clear.at(time));
    return foot;
}

double FootPath::clearance(const FootPlacement& foot, double wanted) const
{
    double lowest = foot.ankle.y();
    for (double along : {m_sole.heel, m_sole.toe}) {
        const osg::Vec3d point(0, -m_sole.ankleHeight, along);
        lowest = std::min(lowest, foot.ankle.y() + (footRotation(0, foot.pitch) * point).y());
    }
    // A smooth max(0, missing), rounded off over half of what is wanted.
    const double missing = wanted - lowest;
    return 0.5 * (missing + std::sqrt(missing * missing + 0.25 * wanted * wanted));
}

}  // namespace KivMotion
