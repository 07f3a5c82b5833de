#include "host/KivReader/humanoid/torsoplan.h"

#include <algorithm>
#include <cmath>

#include "host/KivReader/humanoid/humanoidmeasure.h"

namespace KivReader {

namespace {

constexpr double kNarrowest = 0.85;  ///< of the avatar's proportion: persons' hips are between these
constexpr double kWidest = 1.15;
constexpr double kWideOnUsualArms = 1.05;
constexpr double kSlight = 0.01;      ///< of the avatar's proportion: what is out by less than this is left
constexpr double kElsewhere = 0.025;  ///< of the height: hips that are farther off carry no pelvis
constexpr double kNoWidth = 1e-3;     ///< of the height: thighs as near as this tell no direction

osg::Vec3d acrossAt(const BodySource& source, const std::string& part)
{
    return source.rest[source.matching.at("Left" + part)].place -
           source.rest[source.matching.at("Right" + part)].place;
}

}  // namespace

HipWidth hipWidth(const BodySource& source, const osg::Quat& heading)
{
    const double scale = source.height / source.avatar.height();
    const double usual =
        scale * (source.avatar.place("LeftUpLeg") - source.avatar.place("RightUpLeg")).length();
    const double usualArms =
        scale * (source.avatar.place("LeftArm") - source.avatar.place("RightArm")).length();
    HipWidth width;
    width.toLeft = acrossAt(source, "UpLeg");
    width.own = width.toLeft.normalize();
    if (width.own < kNoWidth * source.height)
        width.toLeft = heading * osg::Vec3d(1, 0, 0);
    // A chest that is wider than the avatar's has to have its arms farther apart, too.
    const double widest = std::clamp(acrossAt(source, "Arm").length() / usualArms, kWideOnUsualArms, kWidest);
    width.measured = std::clamp(width.own, kNarrowest * usual, widest * usual);
    if (std::fabs(width.measured - width.own) < kSlight * usual)
        width.measured = width.own;
    return width;
}

Spot hipsSpot(const BodySource& source, const osg::Quat& heading)
{
    Spot spot = spotOf(source, source.matching.at("Hips"));
    const double above = source.avatar.rise("LeftUpLeg", "Hips");
    const osg::Vec3d usual = middle(source.rest, source.matching, "LeftUpLeg", "RightUpLeg") +
                             heading * osg::Vec3d(0, 0, above * source.height / source.avatar.height());
    if ((spot.place - usual).length() < kElsewhere * source.height)
        return spot;
    spot.place = usual;
    spot.isSource = false;
    spot.along = "LeftUpLeg&RightUpLeg";
    return spot;
}

}  // namespace KivReader
