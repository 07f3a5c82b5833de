#include "host/KivManipulator/propsedit.h"

#include <osg/ComputeBoundsVisitor>

#include <algorithm>
#include <cmath>

#include "host/KivManipulator/propsgizmos.h"
#include "host/KivManipulator/propspose.h"

namespace KivManipulator {

namespace {

/// The rings run this far outside the props.
constexpr double kRingClearance = 1.28;
/// The contact point's arrows, in radii of the props.
constexpr double kContactReach = 0.8;
/// Scene units: a props smaller than this still gets a gizmo that a pointer can hit.
constexpr double kSmallestRadius = 2.0;
/// Taken for a props without geometry.
constexpr double kUsualRadius = 6.0;

double largest(const osg::Vec3d& vector)
{
    return std::max({std::abs(vector.x()), std::abs(vector.y()), std::abs(vector.z())});
}

osg::Matrixd gizmoMatrix(double size, const osg::Quat& rotation, const osg::Vec3d& place)
{
    return osg::Matrixd::scale(size, size, size) * osg::Matrixd::rotate(rotation) *
           osg::Matrixd::translate(place);
}

}  // namespace

PropsEdit::PropsEdit(PropsGeode& geode, osg::MatrixTransform* propsTransform,
                     IPropsGeodePropertyNotify* notify)
    : m_geode(geode), m_pTransform(propsTransform), m_pNotify(notify)
{}

PropsEdit::~PropsEdit()
{
    // Somebody may still hold a gizmo.
    for (GizmoDragger* gizmo : {m_pPropsGizmo.get(), m_pContactPointGizmo.get()})
        if (gizmo)
            gizmo->forget();
}

bool PropsEdit::makeGizmos()
{
    if (m_pPropsGizmo || !m_pTransform.valid())
        return false;
    m_pPropsGizmo = makePropsGizmo(PropsGeode::kDraggerMask, this);
    m_pContactPointGizmo = makeContactPointGizmo(PropsGeode::kDraggerMask, this);
    // Shown both, the smaller one is asked first: it stands inside the other.
    m_geode.addChild(m_pContactPointGizmo);
    m_geode.addChild(m_pPropsGizmo);
    measureProps();
    placeGizmos();
    return true;
}

bool PropsEdit::show(GizmoDragger* gizmo, bool shown)
{
    if (!gizmo)
        return false;
    if (m_pDragged == gizmo && !shown)
        dragFinished();
    if (shown && !isDragging()) {
        measureProps();
        placeGizmos();
    }
    gizmo->show(shown);
    m_geode.dirtyBound();
    return true;
}

bool PropsEdit::setPropsMatrix(const osg::Matrixd& matrix)
{
    osg::ref_ptr<osg::MatrixTransform> transform;
    if (!m_pTransform.lock(transform) || !isFinite(matrix))
        return false;
    // Otherwise the next move of the pointer would take the new matrix away again.
    dragFinished();
    transform->setMatrix(matrix);
    placeGizmos();
    return true;
}

bool PropsEdit::setContactPoint(const osg::Vec3d& point)
{
    osg::Matrixd toProps;
    if (!toProps.invert(propsMatrix()))
        return false;
    const osg::Vec3d local = point * toProps;
    if (!std::isfinite(local.length2()))
        return false;
    dragFinished();
    m_contactPoint = local;
    placeGizmos();
    return true;
}

osg::Matrixd PropsEdit::propsMatrix() const
{
    osg::ref_ptr<osg::MatrixTransform> transform;
    return m_pTransform.lock(transform) ? transform->getMatrix() : osg::Matrixd();
}

void PropsEdit::dragStarted(GizmoDragger& gizmo)
{
    m_pDragged = &gizmo;
    m_startMatrix = propsMatrix();
    m_startContactPoint = m_contactPoint;
    m_startGizmo = gizmo.getMatrix();
    reportFlag(true);
}

void PropsEdit::dragMoved(GizmoDragger& gizmo)
{
    if (&gizmo != m_pDragged)
        return;
    if (&gizmo == m_pPropsGizmo)
        movePropsWith(gizmo);
    else
        moveContactPointWith(gizmo);
    placeGizmos();
    reportPose();
}

void PropsEdit::dragFinished()
{
    if (isDragging())
        closeDrag();
}

void PropsEdit::dragCancelled()
{
    if (!isDragging())
        return;
    osg::ref_ptr<osg::MatrixTransform> transform;
    if (m_pTransform.lock(transform))
        transform->setMatrix(m_startMatrix);
    m_contactPoint = m_startContactPoint;
    closeDrag();
}

void PropsEdit::gizmoIdle()
{
    // The host may move the props without asking the geode.
    if (!isDragging() && propsMatrix() != m_placedFor)
        placeGizmos();
}

void PropsEdit::measureProps()
{
    m_bounds.init();
    osg::ref_ptr<osg::MatrixTransform> transform;
    if (!m_pTransform.lock(transform))
        return;
    // Below the transform: a box about the turned props would be larger than the props.
    osg::ComputeBoundsVisitor measure;
    for (unsigned int i = 0; i < transform->getNumChildren(); ++i)
        transform->getChild(i)->accept(measure);
    m_bounds = measure.getBoundingBox();
}

void PropsEdit::placeGizmos()
{
    if (!m_pPropsGizmo)
        return;
    const osg::Matrixd matrix = propsMatrix();
    const PropsPose pose = poseOf(matrix);
    const bool measured = m_bounds.valid();
    const osg::Vec3d middle = measured ? m_bounds.center() : osg::Vec3d();
    const osg::Vec3d half = measured ? (m_bounds._max - m_bounds._min) * 0.5
                                     : osg::Vec3d(kUsualRadius, kUsualRadius, kUsualRadius);
    const double radius = std::max(kSmallestRadius, largest(osg::componentMultiply(half, pose.scale)));
    const osg::Matrixd props = gizmoMatrix(radius * kRingClearance, pose.rotation, middle * matrix);
    const osg::Matrixd contact = gizmoMatrix(radius * kContactReach, pose.rotation, m_contactPoint * matrix);
    // The dragged one moves by itself: rounding must not feed back into the drag.
    if (m_pDragged != m_pPropsGizmo && isFinite(props))
        m_pPropsGizmo->setMatrix(props);
    if (m_pDragged != m_pContactPointGizmo && isFinite(contact))
        m_pContactPointGizmo->setMatrix(contact);
    m_placedFor = matrix;
}

void PropsEdit::movePropsWith(const GizmoDragger& gizmo)
{
    osg::ref_ptr<osg::MatrixTransform> transform;
    osg::Matrixd fromStart;
    if (!m_pTransform.lock(transform) || !fromStart.invert(m_startGizmo))
        return;
    const osg::Matrixd moved = m_startMatrix * fromStart * gizmo.getMatrix();
    if (isFinite(moved))
        transform->setMatrix(moved);
}

void PropsEdit::moveContactPointWith(const GizmoDragger& gizmo)
{
    osg::Matrixd toProps;
    // A props squeezed flat has no space of its own in which the point could move.
    if (toProps.invert(propsMatrix()))
        m_contactPoint = gizmo.getMatrix().getTrans() * toProps;
}

void PropsEdit::closeDrag()
{
    GizmoDragger* const gizmo = m_pDragged;
    m_pDragged = nullptr;
    gizmo->letGo();
    placeGizmos();
    reportPose();
    reportFlag(false);
}

void PropsEdit::reportPose()
{
    if (!m_pNotify)
        return;
    const PropsPose pose = poseOf(propsMatrix());
    const std::string name = m_geode.getPropsName();
    m_pNotify->PropsVectorsChanged(name, osg::Vec3f(pose.position), osg::Vec3f(contactPoint()));
    m_pNotify->PropsValuesChanged(name, pose.rotation, pose.scale);
}

void PropsEdit::reportFlag(bool flag)
{
    if (m_pNotify)
        m_pNotify->PropsFlagChanged(m_geode.getPropsName(), flag);
}

}  // namespace KivManipulator
