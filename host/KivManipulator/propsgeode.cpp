#include "KivManipulator/propsgeode.h"

#include <osgAnimation/Bone>

#include "host/KivManipulator/propsedit.h"
#include "host/KivManipulator/propsgizmos.h"
#include "host/KivManipulator/propspose.h"

namespace KivManipulator {

namespace {

const osg::Node* nearestBoneAbove(const osg::Node& node)
{
    for (const osg::Group* parent : node.getParents()) {
        if (dynamic_cast<const osgAnimation::Bone*>(parent))
            return parent;
        if (const osg::Node* bone = nearestBoneAbove(*parent))
            return bone;
    }
    return nullptr;
}

/// @param reach along each axis, in units of the gizmo.
std::vector<osg::Vec3d> handlesOf(const GizmoDragger* gizmo, double reach)
{
    if (!gizmo || !gizmo->isShown())
        return {};
    std::vector<osg::Vec3d> handles;
    for (const osg::Vec3f& axis : {osg::X_AXIS, osg::Y_AXIS, osg::Z_AXIS})
        handles.push_back(osg::Vec3d(axis) * reach * gizmo->getMatrix());
    return handles;
}

}  // namespace

PropsGeode::PropsGeode(const std::string& actorName, osg::MatrixTransform* propsTransform,
                       const osg::Vec3f& position, IPropsGeodePropertyNotify* notify)
    : m_actorName(actorName),
      m_position(position),
      m_spEdit(std::make_unique<PropsEdit>(*this, propsTransform, notify))
{}

PropsGeode::~PropsGeode() = default;

bool PropsGeode::SetDefaultDragger()
{
    return m_spEdit->makeGizmos();
}

bool PropsGeode::SetInitalBoneAndMatrix(osg::MatrixTransform* bone, const osg::Matrixd& boneMatrix,
                                        const osg::Matrixd& jointMatrix)
{
    if (!bone || !isFinite(boneMatrix) || !isFinite(jointMatrix))
        return false;
    m_pBone = bone;
    m_boneMatrix = boneMatrix;
    m_jointMatrix = jointMatrix;
    return true;
}

bool PropsGeode::SetPropsGemoetryMat(const double* matrix)
{
    return matrix && m_spEdit->setPropsMatrix(osg::Matrixd(matrix));
}

bool PropsGeode::ShowPropsDragger(bool show)
{
    return m_spEdit->show(m_spEdit->propsGizmo(), show);
}

bool PropsGeode::ShowContactPointDragger(bool show)
{
    return m_spEdit->show(m_spEdit->contactPointGizmo(), show);
}

bool PropsGeode::isPropsDraggerShown() const
{
    return m_spEdit->propsGizmo() && m_spEdit->propsGizmo()->isShown();
}

bool PropsGeode::isContactPointDraggerShown() const
{
    return m_spEdit->contactPointGizmo() && m_spEdit->contactPointGizmo()->isShown();
}

std::vector<osg::Vec3d> PropsGeode::getPropsDraggerHandles() const
{
    return handlesOf(m_spEdit->propsGizmo(), kPropsArrow);
}

std::vector<osg::Vec3d> PropsGeode::getContactPointDraggerHandles() const
{
    return handlesOf(m_spEdit->contactPointGizmo(), kContactPointArrow);
}

osg::Matrixd PropsGeode::getPropsGeometryMat() const
{
    return m_spEdit->propsMatrix();
}

osg::Vec3f PropsGeode::getContactPoint() const
{
    return m_spEdit->contactPoint();
}

bool PropsGeode::setContactPoint(const osg::Vec3f& point)
{
    return m_spEdit->setContactPoint(point);
}

IPropsGeodePropertyNotify* PropsGeode::getNotify() const
{
    return m_spEdit->notify();
}

std::string PropsGeode::getActorName() const
{
    return m_actorName;
}

osg::Vec3f PropsGeode::getPropsPosition() const
{
    return m_position;
}

osg::MatrixTransform* PropsGeode::getInitialBone() const
{
    return m_pBone.get();
}

osg::Matrixd PropsGeode::getInitialBoneMatrix() const
{
    return m_boneMatrix;
}

osg::Matrixd PropsGeode::getInitialJointMatrix() const
{
    return m_jointMatrix;
}

std::string PropsGeode::getPropsName() const
{
    osg::ref_ptr<osg::MatrixTransform> tied;
    if (m_pBone.lock(tied))
        return tied->getName();
    const osg::Node* bone = nearestBoneAbove(*this);
    return bone ? bone->getName() : std::string();
}

bool PropsGeode::isDragging() const
{
    return m_spEdit->isDragging();
}

bool PropsGeode::cancelDrag()
{
    const bool dragging = isDragging();
    m_spEdit->dragCancelled();
    return dragging;
}

bool PropsGeode::finishDrag()
{
    const bool dragging = isDragging();
    m_spEdit->dragFinished();
    return dragging;
}

osg::BoundingSphere PropsGeode::computeBound() const
{
    osg::BoundingSphere bound;
    for (unsigned int i = 0; i < getNumChildren(); ++i)
        if (getChild(i)->getNodeMask() != 0)
            bound.expandBy(getChild(i)->getBound());
    return bound;
}

}  // namespace KivManipulator
