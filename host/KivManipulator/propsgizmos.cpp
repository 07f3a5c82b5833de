#include "host/KivManipulator/propsgizmos.h"

#include "host/KivManipulator/draggershapes.h"
#include "host/KivManipulator/movehandles.h"
#include "host/KivManipulator/ringdragger.h"

namespace KivManipulator {

namespace {

const osg::Vec4 kRed(0.90f, 0.22f, 0.20f, 1.0f);
const osg::Vec4 kGreen(0.30f, 0.75f, 0.25f, 1.0f);
const osg::Vec4 kBlue(0.20f, 0.45f, 0.95f, 1.0f);
const osg::Vec4 kAmber(1.00f, 0.66f, 0.10f, 1.0f);
const osg::Vec4 kIvory(1.00f, 0.95f, 0.80f, 1.0f);
const osg::Vec4 kGrabbed(1.00f, 0.95f, 0.35f, 1.0f);

struct Axis
{
    osg::Vec3d direction;
    osg::Vec4 colour;
};

const Axis kAxes[] = {{{1.0, 0.0, 0.0}, kRed}, {{0.0, 1.0, 0.0}, kGreen}, {{0.0, 0.0, 1.0}, kBlue}};

/// What is seen of a handle, and what a pointer can grab of it.
struct Shape
{
    osg::ref_ptr<osg::Geometry> seen;
    osg::ref_ptr<osg::Geometry> grabbed;
};

Shape ringShape()
{
    return {makeRing(1.0f, 0.018f), makeRing(1.0f, 0.06f)};
}

Shape arrowShape(const osg::Vec2f& span, float thickness)
{
    return {makeArrow(span.x(), span.y(), thickness, 3.0f * thickness, 8.0f * thickness),
            makeArrow(span.x(), span.y(), 3.0f * thickness, 4.0f * thickness, 8.0f * thickness)};
}

osg::Matrixd turnZTo(const osg::Vec3d& direction)
{
    return osg::Matrixd::rotate(osg::Vec3d(0.0, 0.0, 1.0), direction);
}

void addRing(GizmoDragger& gizmo, const GizmoLook& look, const Axis& axis, const Shape& shape)
{
    osg::ref_ptr<RingDragger> ring = new RingDragger(axis.colour, kGrabbed);
    ring->setMatrix(turnZTo(axis.direction));
    paintHandle(*ring, axis.colour);
    dressHandle(*ring, look, *shape.seen, *shape.grabbed);
    gizmo.addHandle(ring);
}

void addArrow(GizmoDragger& gizmo, const GizmoLook& look, const osg::Vec3d& direction,
              const osg::Vec4& colour, const Shape& shape)
{
    osg::ref_ptr<ArrowDragger> arrow = new ArrowDragger(colour, kGrabbed);
    arrow->setMatrix(turnZTo(direction));
    paintHandle(*arrow, colour);
    dressHandle(*arrow, look, *shape.seen, *shape.grabbed);
    gizmo.addHandle(arrow);
}

}  // namespace

osg::ref_ptr<GizmoDragger> makePropsGizmo(osg::Node::NodeMask mask, IDragListener* listener)
{
    const GizmoLook look(0.28f);
    osg::ref_ptr<GizmoDragger> gizmo = new GizmoDragger(mask, listener);
    gizmo->setName("PropsDragger");
    const Shape ring = ringShape();
    const Shape arrow = arrowShape({1.08f, 1.5f}, 0.026f);
    for (const Axis& axis : kAxes) {
        addRing(*gizmo, look, axis, ring);
        addArrow(*gizmo, look, axis.direction, axis.colour, arrow);
    }
    osg::ref_ptr<FreeDragger> inside = new FreeDragger(kIvory, kGrabbed);
    makeGrabbable(*inside, *makeBall(0.78f));
    gizmo->addHandle(inside);
    return gizmo;
}

osg::ref_ptr<GizmoDragger> makeContactPointGizmo(osg::Node::NodeMask mask, IDragListener* listener)
{
    // Mostly inside the props, so what is hidden by it must still be read well.
    const GizmoLook look(0.6f);
    osg::ref_ptr<GizmoDragger> gizmo = new GizmoDragger(mask, listener);
    gizmo->setName("ContactPointDragger");
    const Shape arrow = arrowShape({0.2f, 1.0f}, 0.04f);
    for (const Axis& axis : kAxes)
        addArrow(*gizmo, look, axis.direction, kAmber, arrow);
    osg::ref_ptr<FreeDragger> ball = new FreeDragger(kIvory, kGrabbed);
    paintHandle(*ball, kIvory);
    dressHandle(*ball, look, *makeBall(0.14f), *makeBall(0.18f));
    gizmo->addHandle(ball);
    return gizmo;
}

}  // namespace KivManipulator
