#pragma once

#include <osg/Node>
#include <osg/Vec3d>

#include <string>

namespace KivBenchmark {

/// Where the first node whose name ends like this stands in the space of `root`'s parents. Throws
/// std::runtime_error where there is none.
osg::Vec3d placeOfJoint(osg::Node& root, const std::string& nameEnding);

}  // namespace KivBenchmark
