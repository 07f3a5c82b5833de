#pragma once

#include <osg/BoundingBox>
#include <osg/MatrixTransform>
#include <osg/observer_ptr>

#include <string>

#include "KivManipulator/propsgeode.h"
#include "host/KivManipulator/gizmodragger.h"

namespace KivManipulator {

/// What a geode does with its gizmos: places them on the props, turns their drags into poses and reports
/// them.
class PropsEdit : public IDragListener
{
public:
    PropsEdit(PropsGeode& geode, osg::MatrixTransform* propsTransform, IPropsGeodePropertyNotify* notify);
    ~PropsEdit() override;

    bool makeGizmos();
    bool show(GizmoDragger* gizmo, bool shown);
    bool setPropsMatrix(const osg::Matrixd& matrix);
    bool setContactPoint(const osg::Vec3d& point);
    bool isDragging() const { return m_pDragged != nullptr; }

    GizmoDragger* propsGizmo() const { return m_pPropsGizmo.get(); }
    GizmoDragger* contactPointGizmo() const { return m_pContactPointGizmo.get(); }
    IPropsGeodePropertyNotify* notify() const { return m_pNotify; }
    osg::Matrixd propsMatrix() const;
    /// In the bone's frame.
    osg::Vec3d contactPoint() const { return m_contactPoint * propsMatrix(); }

    void dragStarted(GizmoDragger& gizmo) override;
    void dragMoved(GizmoDragger& gizmo) override;
    void dragFinished() override;
    void dragCancelled() override;
    void gizmoIdle() override;

private:
    void measureProps();
    void placeGizmos();
    void movePropsWith(const GizmoDragger& gizmo);
    void moveContactPointWith(const GizmoDragger& gizmo);
    void closeDrag();
    void reportPose();
    void reportFlag(bool flag);

    PropsGeode& m_geode;
    osg::observer_ptr<osg::MatrixTransform> m_pTransform;
    IPropsGeodePropertyNotify* m_pNotify;
    osg::ref_ptr<GizmoDragger> m_pPropsGizmo;
    osg::ref_ptr<GizmoDragger> m_pContactPointGizmo;

    /// In the props' own space, so that it goes where the props goes.
    osg::Vec3d m_contactPoint;
    /// Of the props in its own space.
    osg::BoundingBoxd m_bounds;
    osg::Matrixd m_placedFor;

    GizmoDragger* m_pDragged = nullptr;
    osg::Matrixd m_startMatrix;
    osg::Vec3d m_startContactPoint;
    osg::Matrixd m_startGizmo;
};

}  // namespace KivManipulator
