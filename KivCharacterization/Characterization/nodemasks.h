#pragma once

#include <osg/Node>

namespace KivCharacterization {

/// Node masks of an actor's parts: of its motion skeleton, and of its overlays and its props' meshes.
constexpr osg::Node::NodeMask kSkeletonMask = 1;
constexpr osg::Node::NodeMask kOverlayMask = 4;

}  // namespace KivCharacterization
