#pragma once

#include <osg/Group>
#include <osg/ref_ptr>

#include "benchmarks/support/minimalreader.h"

namespace KivBenchmark {

/// The motion as osgAnimation plays it: a skeleton of its bones, each with the update callback that it comes
/// with, key frames of quaternions, one manager. Z-up; bones bear the motion's names.
osg::ref_ptr<osg::Group> animatedBones(const MinimalMotion& motion);

}  // namespace KivBenchmark
