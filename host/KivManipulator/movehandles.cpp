#include "host/KivManipulator/movehandles.h"

#include <cmath>

#include "host/KivManipulator/pointerray.h"

namespace KivManipulator {

namespace {

/// Above this cosine between view and arrow the pointer has no way to go along it.
constexpr double kHeadOn = 0.96;

}  // namespace

ArrowDragger::ArrowDragger(const osg::Vec4& colour, const osg::Vec4& grabbedColour)
    : osgManipulator::Translate1DDragger(osg::Vec3d(), osg::Vec3d(0.0, 0.0, 1.0))
{
    setColor(colour);
    setPickColor(grabbedColour);
}

bool ArrowDragger::handle(const osgManipulator::PointerInfo& pointer, const osgGA::GUIEventAdapter& ea,
                          osgGA::GUIActionAdapter& aa)
{
    if (ea.getEventType() == osgGA::GUIEventAdapter::PUSH && pointer.contains(this)) {
        const std::optional<Ray> ray = rayIn(*this, pointer);
        if (!ray || std::abs(ray->along.z()) > kHeadOn)
            return false;
    }
    return Translate1DDragger::handle(pointer, ea, aa);
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
    if (const std::optional<Ray> ray = rayIn(*this, pointer))
        _projector->setPlane(osg::Plane(ray->along, osg::Vec3d()));
}

}  // namespace KivManipulator
