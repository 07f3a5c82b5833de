#pragma once

#include <osg/Matrixd>
#include <osg/Vec4>

#include "host/KivManipulator/gizmodragger.h"

namespace KivManipulator {

/// A ring of radius 1 about its z axis that turns its gizmo: the point that was grabbed follows the pointer
/// along the ring, seen from its face; seen edge-on it follows along the tangent.
class RingDragger : public osgManipulator::Dragger, public IGizmoHandle
{
public:
    explicit RingDragger(const osg::Vec4& colour, const osg::Vec4& grabbedColour);

    bool handle(const osgManipulator::PointerInfo& pointer, const osgGA::GUIEventAdapter& ea,
                osgGA::GUIActionAdapter& aa) override;
    using osgManipulator::Dragger::handle;
    void showReleased() override;

protected:
    ~RingDragger() override = default;

private:
    void grab(const osgManipulator::PointerInfo& pointer);
    void turn(const osgManipulator::PointerInfo& pointer);
    /// Where the pointer is along the ring, radians; false where it meets neither face nor tangent.
    bool angleAt(const osgManipulator::PointerInfo& pointer, double& angle) const;
    void send(int stage, double angle);

    osg::Vec4 m_colour;
    osg::Vec4 m_grabbedColour;
    osg::Matrixd m_localToWorld;
    osg::Matrixd m_worldToLocal;
    double m_grabbedAngle = 0.0;
    double m_lastAngle = 0.0;
    double m_turned = 0.0;
    bool m_edgeOn = false;
};

}  // namespace KivManipulator
