#include "host/KivManipulator/gizmodragger.h"

#include <osgManipulator/Command>

#include <utility>

#include "host/KivManipulator/propspose.h"

namespace KivManipulator {

namespace {

using Event = osgGA::GUIEventAdapter;

/// A pointer ray along an axis meets it at infinity; no hand pulls a props this many gizmo sizes in one go.
constexpr double kFarthestPull = 200.0;

osg::Camera* cameraUnderPointer(const Event& ea, osgViewer::View& view)
{
    if (ea.getNumPointerData() >= 1) {
        const osgGA::PointerData* pointer = ea.getPointerData(ea.getNumPointerData() - 1);
        if (osg::Camera* camera = pointer->object.valid() ? pointer->object->asCamera() : nullptr)
            return camera;
    }
    return view.getCamera();
}

}  // namespace

GizmoDragger::GizmoDragger(osg::Node::NodeMask mask, IDragListener* listener)
    : m_shownMask(mask), m_pListener(listener)
{
    setNodeMask(0);
    setIntersectionMask(mask);
}

void GizmoDragger::show(bool shown)
{
    setNodeMask(shown ? m_shownMask : 0);
    setHandleEvents(shown);
    m_swallowEscapeUp = false;
}

void GizmoDragger::letGo()
{
    setDraggerActive(false);
    m_started = false;
    _pointer.reset();
    m_pCamera = nullptr;
    for (IGizmoHandle* handle : m_handles)
        handle->showReleased();
}

bool GizmoDragger::handle(const Event& ea, osgGA::GUIActionAdapter& aa)
{
    auto* view = dynamic_cast<osgViewer::View*>(&aa);
    if (!view || !m_pListener)
        return false;
    switch (ea.getEventType()) {
        case Event::PUSH:
            return grab(ea, *view);
        case Event::DRAG:
            return pull(ea, aa);
        case Event::RELEASE:
            return release(ea, aa);
        case Event::KEYDOWN:
        case Event::KEYUP:
            return escape(ea);
        case Event::MOVE:
        case Event::CLOSE_WINDOW:
        case Event::QUIT_APPLICATION:
            // A pointer that moves with no button down has lost its release to another window.
            finish();
            return false;
        case Event::FRAME:
            if (!getDraggerActive())
                m_pListener->gizmoIdle();
            return false;
        default:
            return false;
    }
}

bool GizmoDragger::grab(const Event& ea, osgViewer::View& view)
{
    if (ea.getButton() != Event::LEFT_MOUSE_BUTTON)
        return getDraggerActive();
    finish();
    if (ea.getHandled() || !pick(ea, view))
        return false;
    setDraggerActive(true);
    // What lies nearest to the eye is asked first; a handle that cannot be used from there lets the next one
    // try.
    while (!_pointer.completed()) {
        if (handle(_pointer, ea, view) && m_started)
            return true;
        _pointer._hitList.pop_front();
        _pointer._hitIter = _pointer._hitList.begin();
    }
    letGo();
    return false;
}

bool GizmoDragger::pick(const Event& ea, osgViewer::View& view)
{
    osg::NodePath path;
    osgManipulator::computeNodePathToRoot(*this, path);
    osgUtil::LineSegmentIntersector::Intersections hits;
    if (path.empty() || !view.computeIntersections(ea, path, hits, getIntersectionMask()))
        return false;
    _pointer.reset();
    for (const auto& hit : hits)
        _pointer.addIntersection(hit.nodePath, hit.getLocalIntersectPoint());
    m_pCamera = cameraUnderPointer(ea, view);
    _pointer.setCamera(m_pCamera.get());
    const osg::Vec2d place = pointerInWindow(ea);
    _pointer.setMousePosition(static_cast<float>(place.x()), static_cast<float>(place.y()));
    return true;
}

bool GizmoDragger::pull(const Event& ea, osgGA::GUIActionAdapter& aa)
{
    if (!getDraggerActive())
        return false;
    _pointer._hitIter = _pointer._hitList.begin();
    const osg::Vec2d place = pointerInWindow(ea);
    _pointer.setMousePosition(static_cast<float>(place.x()), static_cast<float>(place.y()));
    handle(_pointer, ea, aa);
    return true;
}

bool GizmoDragger::release(const Event& ea, osgGA::GUIActionAdapter& aa)
{
    if (!getDraggerActive())
        return false;
    if ((ea.getButtonMask() & Event::LEFT_MOUSE_BUTTON) != 0)
        return true;
    finish();
    aa.requestRedraw();
    return true;
}

bool GizmoDragger::escape(const Event& ea)
{
    if (ea.getKey() != Event::KEY_Escape)
        return false;
    if (ea.getEventType() == Event::KEYUP)
        return std::exchange(m_swallowEscapeUp, false);
    if (!getDraggerActive())
        return false;
    letGo();
    m_swallowEscapeUp = true;
    m_pListener->dragCancelled();
    return true;
}

void GizmoDragger::finish()
{
    if (!getDraggerActive())
        return;
    letGo();
    m_pListener->dragFinished();
}

bool GizmoDragger::receive(const osgManipulator::MotionCommand& command)
{
    if (!m_pListener || !getDraggerActive())
        return false;
    if (command.getStage() == osgManipulator::MotionCommand::START) {
        osgManipulator::CompositeDragger::receive(command);
        m_startPlace = getMatrix().getTrans();
        m_started = true;
        m_pListener->dragStarted(*this);
        return true;
    }
    const osg::Matrixd before = getMatrix();
    osgManipulator::CompositeDragger::receive(command);
    const double size = getMatrix().getScale().x();
    if (!isFinite(getMatrix()) || (getMatrix().getTrans() - m_startPlace).length() > kFarthestPull * size) {
        setMatrix(before);
        return false;
    }
    m_pListener->dragMoved(*this);
    return true;
}

osg::Vec2d GizmoDragger::pointerInWindow(const Event& ea) const
{
    const osgGA::PointerData* pointer =
        ea.getNumPointerData() >= 1 ? ea.getPointerData(ea.getNumPointerData() - 1) : nullptr;
    const osg::Viewport* viewport = m_pCamera.valid() ? m_pCamera->getViewport() : nullptr;
    if (!pointer || !viewport || pointer->object.get() != m_pCamera.get())
        return {ea.getX(), ea.getY()};
    return {viewport->x() + (pointer->getXnormalized() + 1.0) * 0.5 * viewport->width(),
            viewport->y() + (pointer->getYnormalized() + 1.0) * 0.5 * viewport->height()};
}

}  // namespace KivManipulator
