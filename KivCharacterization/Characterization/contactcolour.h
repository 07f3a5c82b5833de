#pragma once

#include <osg/Vec4f>

#include "KivCommonDef/stickcontact.h"

namespace KivCharacterization {

/// The opaque colour that a joint's contact marker is painted with.
inline osg::Vec4f contactColour(const KivCommonDef::KIV_STICKCONTACT_COLOR& color)
{
    return osg::Vec4f(color.red, color.green, color.blue, 1.0f);
}

}  // namespace KivCharacterization
