#pragma once

#include <osg/Node>

namespace KivCharacterization {

/// Makes a new actor stand where the old one stood: the root joint of the new one takes over the matrix of
/// the old one's. The root joint is reached from the actor's root along first children and is called
/// `<qualifier>#Hips`; where either actor lacks it, or its UpdateBone, nothing happens.
void takeOverRootJointMatrix(osg::Node& oldRoot, osg::Node& newRoot);

}  // namespace KivCharacterization
