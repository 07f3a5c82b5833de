#pragma once

#include <osg/Geometry>
#include <osg/StateSet>
#include <osg/Vec4>
#include <osgManipulator/Dragger>

namespace KivManipulator {

/// Solids about the z axis, in units of the dragger that carries them.
osg::ref_ptr<osg::Geometry> makeArrow(float from, float to, float shaftRadius, float headRadius,
                                      float headLength);
osg::ref_ptr<osg::Geometry> makeRing(float radius, float tubeRadius);
osg::ref_ptr<osg::Geometry> makeBall(float radius);

/// How a gizmo is drawn: solid where it is in sight, faint where something of the scene stands before it.
/// Both parts come after the scene, so that the faint part meets the scene's depth and never the gizmo's own.
struct GizmoLook
{
    explicit GizmoLook(float faintness);

    osg::ref_ptr<osg::StateSet> solid;
    osg::ref_ptr<osg::StateSet> faint;
};

/// Gives a handle what a pointer can grab of it; never drawn.
void makeGrabbable(osgManipulator::Dragger& handle, osg::Geometry& grabbed);

/// Gives a handle what is seen of it and, wider and never drawn, what a pointer can grab.
void dressHandle(osgManipulator::Dragger& handle, const GizmoLook& look, osg::Geometry& seen,
                 osg::Geometry& grabbed);

/// The handle's material, readable on its shadow side too. `osgManipulator::setMaterialColor` then changes
/// the lit part of it, which is how a grabbed handle stands out.
void paintHandle(osgManipulator::Dragger& handle, const osg::Vec4& colour);

}  // namespace KivManipulator
