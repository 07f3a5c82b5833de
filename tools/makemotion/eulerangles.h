// The angles that a motion file holds.
#pragma once

#include <osg/Quat>

namespace KivMotion {

/// Degrees about Z, X and Y, turning as Rz·Rx·Ry (Y turns first).
struct EulerZxy
{
    double z = 0, x = 0, y = 0;
};

/// Of all angles that give the rotation, those nearest to `previous`: over a motion no angle jumps by a full
/// or half turn.
EulerZxy toEulerZxy(const osg::Quat& rotation, const EulerZxy& previous);

}  // namespace KivMotion
