#pragma once

#include <osg/Image>
#include <osg/ref_ptr>

#include <string>

namespace KivPlayer {

/// Writes a PNG that is there whole or not at all.
/// @return what went wrong, empty on success.
std::string writePicture(const osg::Image& picture, const std::string& file);

/// @return null where the file is no picture; RGB, a byte each, bottom row first.
osg::ref_ptr<osg::Image> readPicture(const std::string& file);

/// How far two pictures are apart.
struct PictureDifference
{
    bool sameSize = false;
    double worstTile = 0.0;  ///< the largest mean difference of a 16 x 16 tile over its channels, 0..255
    int worstPixel = 0;      ///< the largest difference of a channel of a pixel, 0..255
    osg::ref_ptr<osg::Image> image;  ///< the differences, four times as strong; null where sizes differ
};

PictureDifference comparePictures(const osg::Image& one, const osg::Image& other);

}  // namespace KivPlayer
