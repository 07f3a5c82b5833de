// A motion as every joint's place in its parent's frame, frame by frame, whatever channels say it.
#pragma once

#include <osg/Quat>
#include <osg/Vec3d>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "KivReader/motiondocument.h"

namespace KivTestSupport {

/// From the parent's frame: moved first, turned then.
struct LocalPlace
{
    osg::Vec3d move;
    osg::Quat turn;
};

struct MovingFigure
{
    struct Joint
    {
        std::string name;
        std::int32_t parent = -1;
        osg::Vec3d offset;
        bool isEndSite = false;
        bool isMoved = false;                      ///< has position channels
        std::array<unsigned, 3> order{{2, 0, 1}};  ///< axes of its three rotations, as they are written
    };

    const LocalPlace& at(std::size_t frame, std::size_t joint) const
    {
        return places[frame * joints.size() + joint];
    }
    LocalPlace& at(std::size_t frame, std::size_t joint) { return places[frame * joints.size() + joint]; }

    std::vector<Joint> joints;  ///< parents first
    std::size_t frames = 0;
    double frameTime = 0.0;
    bool hasMotion = false;
    std::vector<LocalPlace> places;  ///< frames × joints
};

MovingFigure movingFigureOf(const KivReader::MotionDocument& document);

/// Every joint but the end sites gets three rotations, those that are moved get positions in front of them.
KivReader::MotionDocument documentOf(const MovingFigure& figure);

/// At most this many rows, evenly over the motion, which lasts as long as before.
KivReader::MotionDocument withRowsAtMost(const KivReader::MotionDocument& document, std::size_t rows);

}  // namespace KivTestSupport
