#include "apps/kivplayer/window/state/viewarea.h"

#include <algorithm>

namespace KivPlayer {

int ViewArea::width() const
{
    return std::max(1, windowWidth - left);
}

int ViewArea::height() const
{
    return std::max(1, windowHeight - bottom);
}

double ViewArea::aspect() const
{
    return static_cast<double>(width()) / height();
}

osg::Vec4d ViewArea::inClipSpace() const
{
    const double across = static_cast<double>(width()) / std::max(1, windowWidth);
    const double upright = static_cast<double>(height()) / std::max(1, windowHeight);
    return {1.0 - across, 1.0 - upright, across, upright};
}

}  // namespace KivPlayer
