#pragma once

#include <osg/Group>
#include <osg/ref_ptr>

#include "benchmarks/support/minimalreader.h"

namespace KivBenchmark {

/// The least that nodes of a motion cost: a bone a joint, named, at its offset, made by the shortest calls;
/// nothing plays them.
osg::ref_ptr<osg::Group> plainBones(const MinimalMotion& motion);

}  // namespace KivBenchmark
