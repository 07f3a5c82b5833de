#pragma once

#include <osg/Node>

#include <string>

namespace KivTestSupport {

/// A scene as text, a line a node, indented by depth: class, name, mask where it is not the default, whether
/// a switch's children are on, matrix to four digits where it is not the identity. Ends at a PropsGeode.
///
///     Switch mask=4 off
///       MatrixTransform "7#Hips" [1 0 0 0 | 0 1 0 0 | 0 0 1 0 | 0 0 96 1]
std::string dumpScene(osg::Node& scene);

}  // namespace KivTestSupport
