#include "host/KivManipulator/ringdragger.h"

#include <osgManipulator/Command>

#include <cmath>

#include "host/KivManipulator/pointerray.h"

namespace KivManipulator {

namespace {

/// Below this cosine between view and axis the ring's plane is too slant to follow a pointer on it.
constexpr double kEdgeOn = 0.2;

}  // namespace

RingDragger::RingDragger(const osg::Vec4& colour, const osg::Vec4& grabbedColour)
    : m_colour(colour), m_grabbedColour(grabbedColour)
{}

bool RingDragger::handle(const osgManipulator::PointerInfo& pointer, const osgGA::GUIEventAdapter& ea,
                         osgGA::GUIActionAdapter& aa)
{
    if (!pointer.contains(this))
        return false;
    if (ea.getEventType() == osgGA::GUIEventAdapter::PUSH)
        grab(pointer);
    else if (ea.getEventType() == osgGA::GUIEventAdapter::DRAG)
        turn(pointer);
    else
        return false;
    aa.requestRedraw();
    return true;
}

void RingDragger::showReleased()
{
    osgManipulator::setMaterialColor(m_colour, *this);
}

void RingDragger::grab(const osgManipulator::PointerInfo& pointer)
{
    osg::NodePath path;
    osgManipulator::computeNodePathToRoot(*this, path);
    m_localToWorld = osg::computeLocalToWorld(path);
    if (!m_worldToLocal.invert(m_localToWorld))
        return;
    const osg::Vec3d point = pointer.getLocalIntersectPoint();
    m_grabbedAngle = std::atan2(point.y(), point.x());
    m_edgeOn = std::abs(rayIn(m_worldToLocal, pointer).along.z()) < kEdgeOn;
    m_turned = 0.0;
    if (!angleAt(pointer, m_lastAngle))
        return;
    osgManipulator::setMaterialColor(m_grabbedColour, *this);
    send(osgManipulator::MotionCommand::START, 0.0);
}

void RingDragger::turn(const osgManipulator::PointerInfo& pointer)
{
    double angle = 0.0;
    if (!angleAt(pointer, angle))
        return;
    // On the face the angle jumps by a turn where the circle closes.
    m_turned += m_edgeOn ? angle - m_lastAngle : std::remainder(angle - m_lastAngle, 2.0 * osg::PI);
    m_lastAngle = angle;
    send(osgManipulator::MotionCommand::MOVE, m_turned);
}

bool RingDragger::angleAt(const osgManipulator::PointerInfo& pointer, double& angle) const
{
    const Ray ray = rayIn(m_worldToLocal, pointer);
    if (!m_edgeOn) {
        if (std::abs(ray.along.z()) < 1e-6)
            return false;
        const osg::Vec3d point = ray.from - ray.along * (ray.from.z() / ray.along.z());
        angle = std::atan2(point.y(), point.x());
        return true;
    }
    const osg::Vec3d touch(std::cos(m_grabbedAngle), std::sin(m_grabbedAngle), 0.0);
    const osg::Vec3d tangent(-touch.y(), touch.x(), 0.0);
    const double slant = tangent * ray.along;
    const double across = 1.0 - slant * slant;
    if (across < 1e-6)
        return false;
    const osg::Vec3d between = touch - ray.from;
    angle = (slant * (between * ray.along) - between * tangent) / across;
    return std::isfinite(angle);
}

void RingDragger::send(int stage, double angle)
{
    osg::ref_ptr<osgManipulator::Rotate3DCommand> command = new osgManipulator::Rotate3DCommand;
    command->setStage(static_cast<osgManipulator::MotionCommand::Stage>(stage));
    command->setLocalToWorldAndWorldToLocal(m_localToWorld, m_worldToLocal);
    command->setRotation(osg::Quat(angle, osg::Vec3d(0.0, 0.0, 1.0)));
    dispatch(*command);
}

}  // namespace KivManipulator
