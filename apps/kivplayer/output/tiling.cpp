#include "apps/kivplayer/output/tiling.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

namespace KivPlayer {

namespace {

/// @param left,bottom where the tile begins, pixels.
void place(const osg::Image& tile, int left, int bottom, osg::Image& sheet)
{
    const std::size_t bytes = static_cast<std::size_t>(tile.s()) * 3;
    for (int row = 0; row < tile.t(); ++row)
        std::memcpy(sheet.data(static_cast<unsigned>(left), static_cast<unsigned>(bottom + row)),
                    tile.data(0, static_cast<unsigned>(row)), bytes);
}

}  // namespace

osg::ref_ptr<osg::Image> tiled(const std::vector<osg::ref_ptr<osg::Image>>& pictures, int columns)
{
    if (pictures.empty() || columns < 1)
        throw std::invalid_argument("there is nothing to tile");
    const int width = pictures.front()->s();
    const int height = pictures.front()->t();
    const int across = std::min(columns, static_cast<int>(pictures.size()));
    const int down = (static_cast<int>(pictures.size()) + across - 1) / across;
    osg::ref_ptr<osg::Image> sheet = new osg::Image;
    sheet->allocateImage(width * across, height * down, 1, GL_RGB, GL_UNSIGNED_BYTE, 1);
    std::memset(sheet->data(), 0, sheet->getTotalSizeInBytes());
    for (int i = 0; i < static_cast<int>(pictures.size()); ++i) {
        const osg::Image& picture = *pictures[static_cast<std::size_t>(i)];
        if (picture.s() != width || picture.t() != height)
            throw std::invalid_argument("tiles of different sizes");
        place(picture, i % across * width, (down - 1 - i / across) * height, *sheet);
    }
    return sheet;
}

int columnsForASquare(std::size_t tiles, int width, int height)
{
    const double columns = std::sqrt(static_cast<double>(tiles) * height / width);
    return std::max(1, static_cast<int>(std::lround(columns)));
}

}  // namespace KivPlayer
