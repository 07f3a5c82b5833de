#pragma once

#include <osg/Group>
#include <osg/ref_ptr>

#include <string>

#include "KivAnimation/animation.h"
#include "host/KivReader/figure/motionfigure.h"

namespace KivReader {

struct BuiltSkeleton
{
    osg::ref_ptr<osg::Group> node;  ///< holds the skeleton, which holds the root joint
    osg::ref_ptr<KivAnimation::Animation> animation;
};

/// Makes nodes of a figure, posed at rest, and the animation that poses them by the table.
/// @param qualifier stands before every bone's name, with "#" between them; empty: the joints' names alone.
KIV_READER_API BuiltSkeleton buildSkeleton(MotionFigure figure, KivAnimation::MotionTable table,
                                           const std::string& qualifier);

}  // namespace KivReader
