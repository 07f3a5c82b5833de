#pragma once

#include <osgManipulator/Translate1DDragger>
#include <osgManipulator/Translate2DDragger>

#include "host/KivManipulator/gizmodragger.h"

namespace KivManipulator {

/// Moves its gizmo along its z axis. Seen head-on it cannot be grabbed.
class ArrowDragger : public osgManipulator::Translate1DDragger, public IGizmoHandle
{
public:
    ArrowDragger(const osg::Vec4& colour, const osg::Vec4& grabbedColour);

    bool handle(const osgManipulator::PointerInfo& pointer, const osgGA::GUIEventAdapter& ea,
                osgGA::GUIActionAdapter& aa) override;
    using osgManipulator::Translate1DDragger::handle;
    void showReleased() override;

protected:
    ~ArrowDragger() override = default;
};

/// Moves its gizmo in the plane that faces the eye where it was grabbed.
class FreeDragger : public osgManipulator::Translate2DDragger, public IGizmoHandle
{
public:
    FreeDragger(const osg::Vec4& colour, const osg::Vec4& grabbedColour);

    bool handle(const osgManipulator::PointerInfo& pointer, const osgGA::GUIEventAdapter& ea,
                osgGA::GUIActionAdapter& aa) override;
    using osgManipulator::Translate2DDragger::handle;
    void showReleased() override;

protected:
    ~FreeDragger() override = default;

private:
    void faceTheEye(const osgManipulator::PointerInfo& pointer);
};

}  // namespace KivManipulator
