#include "movehandles.h"

namespace KivManipulator {

ArrowDragger::ArrowDragger(const osg::Vec4& colour, const osg::Vec4& grabbedColour)
    : osgManipulator::Translate1DDragger(osg::Vec3d(), osg::Vec3d(0.0, 0.0, 1.0))
{
    setColor(colour);
    setPickColor(grabbedColour);
}

void ArrowDragger::showReleased()
{
    setColor(getColor());
}

FreeDragger::FreeDragger(const osg::Vec4& colour, const osg::Vec4& grabbedColour)
    : osgManipulator::Translate2DDragger(osg::Plane(0.0, 0.0, 1.0, 0.0))
{
    setColor(colour);
    setPickColor(grabbedColour);
}

bool FreeDragger::handle(const osgManipulator::PointerInfo& pointer, const osgGA::GUIEventAdapter& ea,
                         osgGA::GUIActionAdapter& aa)
{
    if (ea.getEventType() == osgGA::GUIEventAdapter::PUSH && pointer.contains(this))
        faceTheEye(pointer);
    return Translate2DDragger::handle(pointer, ea, aa);
}

void FreeDragger::showReleased()
{
    setColor(getColor());
    getOrCreateStateSet()->removeAttribute(osg::StateAttribute::POLYGONOFFSET);
}

void FreeDragger::faceTheEye(const osgManipulator::PointerInfo& pointer)
{
    osg::NodePath path;
    osgManipulator::computeNodePathToRoot(*this, path);
    osg::Matrixd worldToLocal;
    if (!worldToLocal.invert(osg::computeLocalToWorld(path)))
        return;
    osg::Vec3d near, far;
    pointer.getNearFarPoints(near, far);
    osg::Vec3d normal = far * worldToLocal - near * worldToLocal;
    normal.normalize();
    _projector->setPlane(osg::Plane(normal, osg::Vec3d()));
}

}  // namespace KivManipulator
