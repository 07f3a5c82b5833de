// The avatar as the scene graph that is written to the file.
#pragma once

#include <osg/Group>
#include <osg/ref_ptr>
#include <vector>

#include "tools/makeavatar/pieces.h"

namespace KivAvatarMaker {

/// A group "Avatar" over the joint nodes: one osg::MatrixTransform a joint, named plainly, its matrix the
/// rest offset from its parent. Below each joint its pieces, then its child joints. A piece's own matrix
/// places it in the rest figure, so the file can be looked at as it stands.
osg::ref_ptr<osg::Group> makeAvatarTree(const std::vector<Piece>& pieces);

}  // namespace KivAvatarMaker
