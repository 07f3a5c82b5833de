#pragma once

#include <osg/Vec4f>

#include "KivCommonDef/stickcontact.h"

namespace KivCharacterization {

/// The opaque colour that a joint's contact marker is painted with.
inline osg::Vec4f contactColour(const KivCommonDef::KIV_STICKCONTACT_COLOR& colour)
{
    return osg::Vec4f(colour.red, colour.green, colour.blue, 1.0f);
}

}  // namespace KivCharacterization
