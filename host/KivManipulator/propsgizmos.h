#pragma once

#include "gizmodragger.h"

namespace KivManipulator {

/// How far the tips of the arrows stand from the middle, in units of the gizmo.
constexpr double kPropsGizmoReach = 1.5;

/// Three rings of radius 1 and three arrows beyond them, red, green and blue for x, y and z: the middle stays
/// free for the props.
osg::ref_ptr<GizmoDragger> makePropsGizmo(osg::Node::NodeMask mask, IDragListener* listener);

/// A small ball with three short amber arrows of length 1; the ball moves freely before the eye.
osg::ref_ptr<GizmoDragger> makeContactPointGizmo(osg::Node::NodeMask mask, IDragListener* listener);

}  // namespace KivManipulator
