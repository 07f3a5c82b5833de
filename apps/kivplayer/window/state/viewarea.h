#pragma once

#include <osg/Vec4d>

namespace KivPlayer {

/// A rectangle of the window, pixels from its top left corner.
struct Rect
{
    float x = 0, y = 0, width = 0, height = 0;

    bool contains(float pointX, float pointY) const
    {
        return pointX >= x && pointX < x + width && pointY >= y && pointY < y + height;
    }
};

/// The part of a window that is left to the scene, in pixels; the rest is panels.
struct ViewArea
{
    int windowWidth = 1280;
    int windowHeight = 800;
    int left = 0;    ///< taken at the left
    int bottom = 0;  ///< taken at the bottom

    /// At least one pixel.
    int width() const;
    int height() const;
    double aspect() const;
    /// Its middle and half its sides, where the window goes from -1 to 1 with y upwards.
    osg::Vec4d inClipSpace() const;
};

}  // namespace KivPlayer
