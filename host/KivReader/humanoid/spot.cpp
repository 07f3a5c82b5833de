#include "host/KivReader/humanoid/spot.h"

#include <vector>

namespace KivReader {

Spot spotOf(const BodySource& source, std::size_t joint)
{
    Spot spot;
    spot.source = static_cast<std::int32_t>(joint);
    spot.place = source.rest[joint].place;
    spot.isSource = true;
    return spot;
}

osg::Vec3d tipOf(const BodySource& source, std::size_t joint)
{
    std::vector<bool> isBelow(source.figure.joints.size());
    isBelow[joint] = true;
    const osg::Vec3d& origin = source.rest[joint].place;
    osg::Vec3d tip = origin;
    for (std::size_t i = joint + 1; i < isBelow.size(); ++i) {
        const std::int32_t parent = source.figure.joints[i].parent;
        if (parent < 0 || !isBelow[static_cast<std::size_t>(parent)])
            continue;
        isBelow[i] = true;
        if ((source.rest[i].place - origin).length2() > (tip - origin).length2())
            tip = source.rest[i].place;
    }
    return tip;
}

}  // namespace KivReader
