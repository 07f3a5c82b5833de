#pragma once

#include <osg/Node>

#include <string>

namespace KivCharacterization {

/// Looks a loaded scene over for what a damaged file leaves behind and what would later crash or poison the
/// whole picture: matrices or vertices that are not finite or overflow, indices outside their vertex array,
/// arrays of the wrong length, nodes nested too deeply or in a circle.
/// @return what is wrong, as text; empty for a sound scene.
std::string sceneDefect(osg::Node& scene);

}  // namespace KivCharacterization
