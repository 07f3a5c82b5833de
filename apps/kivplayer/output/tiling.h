#pragma once

#include <osg/Image>
#include <osg/ref_ptr>

#include <vector>

namespace KivPlayer {

/// Pictures of one size side by side, row below row from the upper left; places that stay free are black.
/// @param pictures RGB, a byte each, bottom row first, as is the answer.
/// @param columns at least 1.
/// @throws std::invalid_argument where there is no picture or their sizes differ.
osg::ref_ptr<osg::Image> tiled(const std::vector<osg::ref_ptr<osg::Image>>& pictures, int columns);

/// How many columns make a sheet of such tiles about as wide as it is high.
int columnsForASquare(std::size_t tiles, int width, int height);

}  // namespace KivPlayer
