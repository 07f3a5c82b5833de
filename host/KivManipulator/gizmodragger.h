#pragma once

#include <osg/Camera>
#include <osg/Vec2d>
#include <osgManipulator/Dragger>
#include <osgViewer/View>

#include <vector>

namespace KivManipulator {

class GizmoDragger;

/// A handle of a gizmo that shows whether it is grabbed.
class IGizmoHandle
{
public:
    virtual ~IGizmoHandle() = default;
    /// Takes the handle's own colour back, however the grab ended.
    virtual void showReleased() = 0;
};

/// Hears of the drags of a gizmo. Called from the event traversal.
class IDragListener
{
public:
    virtual ~IDragListener() = default;
    virtual void dragStarted(GizmoDragger& gizmo) = 0;
    virtual void dragMoved(GizmoDragger& gizmo) = 0;
    /// The button was let go, or its release was missed: what was dragged stays where it is.
    virtual void dragFinished() = 0;
    virtual void dragCancelled() = 0;
    /// Once a frame while the gizmo is shown and nothing is dragged.
    virtual void gizmoIdle() = 0;
};

/// A dragger put together from handles. The left button drags; a pick meets the gizmo alone, so that nothing
/// of the scene stands in its way, and works in the camera's own coordinates, whatever range the window's
/// mouse has. The matrix is the gizmo's size, turn and place in its parent's space.
///
/// Takes events between `show(true)` and `show(false)` only; a hidden gizmo is neither drawn nor traversed.
class GizmoDragger : public osgManipulator::CompositeDragger
{
public:
    /// @param mask     node mask while shown.
    /// @param listener is not owned and may be taken away by `forget`.
    GizmoDragger(osg::Node::NodeMask mask, IDragListener* listener);

    const char* libraryName() const override { return "KivManipulator"; }
    const char* className() const override { return "GizmoDragger"; }

    template <class Handle>
    void addHandle(osg::ref_ptr<Handle> handle)
    {
        addChild(handle);
        addDragger(handle.get());
        handle->setParentDragger(this);
        m_handles.push_back(handle.get());
    }

    void show(bool shown);
    bool isShown() const { return getNodeMask() != 0; }
    void forget() { m_pListener = nullptr; }

    /// Lets go of what is grabbed without another word to the listener.
    void letGo();

    bool handle(const osgGA::GUIEventAdapter& ea, osgGA::GUIActionAdapter& aa) override;
    using osgManipulator::CompositeDragger::handle;
    bool receive(const osgManipulator::MotionCommand& command) override;

protected:
    ~GizmoDragger() override = default;

private:
    bool grab(const osgGA::GUIEventAdapter& ea, osgViewer::View& view);
    bool pick(const osgGA::GUIEventAdapter& ea, osgViewer::View& view);
    bool pull(const osgGA::GUIEventAdapter& ea, osgGA::GUIActionAdapter& aa);
    bool release(const osgGA::GUIEventAdapter& ea, osgGA::GUIActionAdapter& aa);
    bool escape(const osgGA::GUIEventAdapter& ea);
    void finish();
    osg::Vec2d pointerInWindow(const osgGA::GUIEventAdapter& ea) const;

    osg::Node::NodeMask m_shownMask;
    IDragListener* m_pListener;
    std::vector<IGizmoHandle*> m_handles;
    osg::observer_ptr<osg::Camera> m_pCamera;
    osg::Vec3d m_startPlace;
    bool m_started = false;
    bool m_swallowEscapeUp = false;
};

}  // namespace KivManipulator
