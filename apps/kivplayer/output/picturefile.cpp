#include "apps/kivplayer/output/picturefile.h"

#include <osgDB/Registry>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "apps/kivplayer/support/atomicfile.h"

namespace KivPlayer {

namespace {

constexpr int kTile = 16;

osgDB::ReaderWriter* pngFormat()
{
    return osgDB::Registry::instance()->getReaderWriterForExtension("png");
}

}  // namespace

std::string writePicture(const osg::Image& picture, const std::string& file)
{
    osgDB::ReaderWriter* format = pngFormat();
    if (!format)
        return "OpenSceneGraph's PNG plugin is missing";
    return writeAtomically(
        file, [&](std::ostream& stream) { return format->writeImage(picture, stream, nullptr).success(); });
}

osg::ref_ptr<osg::Image> readPicture(const std::string& file)
{
    osgDB::ReaderWriter* format = pngFormat();
    std::ifstream stream(file, std::ios::binary);
    if (!format || !stream)
        return nullptr;
    osgDB::ReaderWriter::ReadResult result = format->readImage(stream, nullptr);
    osg::ref_ptr<osg::Image> image = result.getImage();
    if (!image || image->getPixelFormat() != GL_RGB || image->getDataType() != GL_UNSIGNED_BYTE)
        return nullptr;
    return image;
}

PictureDifference comparePictures(const osg::Image& one, const osg::Image& other)
{
    PictureDifference difference;
    difference.sameSize = one.s() == other.s() && one.t() == other.t();
    if (!difference.sameSize)
        return difference;
    difference.image = new osg::Image;
    difference.image->allocateImage(one.s(), one.t(), 1, GL_RGB, GL_UNSIGNED_BYTE, 1);
    for (int top = 0; top < one.t(); top += kTile) {
        for (int left = 0; left < one.s(); left += kTile) {
            const int rows = std::min(kTile, one.t() - top);
            const int columns = std::min(kTile, one.s() - left);
            long long sum = 0;
            for (int row = top; row < top + rows; ++row) {
                const auto x = static_cast<unsigned>(left);
                const auto y = static_cast<unsigned>(row);
                const unsigned char* a = one.data(x, y);
                const unsigned char* b = other.data(x, y);
                unsigned char* out = difference.image->data(x, y);
                for (int i = 0; i < columns * 3; ++i) {
                    const int apart = std::abs(a[i] - b[i]);
                    sum += apart;
                    difference.worstPixel = std::max(difference.worstPixel, apart);
                    out[i] = static_cast<unsigned char>(std::min(255, 4 * apart));
                }
            }
            const double mean = static_cast<double>(sum) / (3.0 * rows * columns);
            difference.worstTile = std::max(difference.worstTile, mean);
        }
    }
    return difference;
}

}  // namespace KivPlayer
