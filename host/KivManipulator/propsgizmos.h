#pragma once

#include "host/KivManipulator/gizmodragger.h"

namespace KivManipulator {

/// Where the arrows of each gizmo are grabbed well: their distance from the middle, in units of the gizmo.
constexpr double kPropsArrow = 1.3;
constexpr double kContactPointArrow = 0.75;

/// Three rings of radius 1 and three arrows beyond them, red, green and blue for x, y and z. The middle stays
/// free for the props: grabbed itself it moves freely before the eye.
osg::ref_ptr<GizmoDragger> makePropsGizmo(osg::Node::NodeMask mask, IDragListener* listener);

/// A small ball with three short amber arrows of length 1; the ball moves freely before the eye.
osg::ref_ptr<GizmoDragger> makeContactPointGizmo(osg::Node::NodeMask mask, IDragListener* listener);

}  // namespace KivManipulator
