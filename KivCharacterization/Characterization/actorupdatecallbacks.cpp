#include "KivCharacterization/Characterization/actorupdatecallbacks.h"

#include <osg/NodeVisitor>
#include <osg/Shape>
#include <osg/ShapeDrawable>

#include <algorithm>
#include <cstdlib>

#include "KivAnimation/bone.h"
#include "KivCharacterization/Characterization/ownmaterial.h"
#include "KivMemoryShare/actorframemanager.h"
#include "KivRenderState/kivrenderstatemanager.h"

namespace KivCharacterization {

namespace {

using KivMemoryShare::ActorFrameManager;
using KivRenderState::KivRenderStateManager;

constexpr std::size_t kGravityFloats = 10;
constexpr std::size_t kContactRecords = 100;
static_assert(kGravityFloats >= ActorFrameManager::kGravityFloats &&
                  kContactRecords >= ActorFrameManager::kStickContacts,
              "the buffers hold what the store copies at most");
constexpr float kContactScale = 100.0f;  // the store's contacts are in metres, its centre of mass is not
constexpr float kContactRadius = 1.5f;
constexpr double kLabelGap = 1.0;

bool isUpdate(const osg::NodeVisitor* visitor)
{
    return visitor && visitor->getVisitorType() == osg::NodeVisitor::UPDATE_VISITOR;
}

bool characterizationReady()
{
    return KivRenderStateManager::instance()->getCharacterizationState() ==
           KivCharacterizationCommonDef::CharacterizationReady;
}

unsigned int actorNumber(const std::string& actorId)
{
    return static_cast<unsigned int>(std::atoi(actorId.c_str()));
}

void hide(osg::Switch& nodes, unsigned int position)
{
    if (nodes.getValue(position)) {
        nodes.setAllChildrenOff();
    }
}

void show(osg::Switch& nodes, unsigned int position)
{
    if (!nodes.getValue(position)) {
        nodes.setAllChildrenOn();
    }
}

osg::ref_ptr<osg::MatrixTransform> makeContactSphere()
{
    const osg::ref_ptr<osg::Sphere> shape = new osg::Sphere(osg::Vec3(), kContactRadius);
    osg::ref_ptr<osg::ShapeDrawable> drawable = new osg::ShapeDrawable(shape.get());
    drawable->setDataVariance(osg::Object::DYNAMIC);
    drawable->getOrCreateStateSet()->setDataVariance(osg::Object::DYNAMIC);
    osg::ref_ptr<osg::MatrixTransform> sphere = new osg::MatrixTransform;
    sphere->addChild(drawable);
    return sphere;
}

void paint(osg::Drawable& drawable, const osg::Vec4f& colour)
{
    osg::StateSet* stateSet = drawable.getOrCreateStateSet();
    const osg::ref_ptr<osg::Material> material = ownMaterial(*stateSet);
    material->setDiffuse(osg::Material::FRONT_AND_BACK, colour);
    material->setAmbient(osg::Material::FRONT_AND_BACK, colour);
    stateSet->setAttributeAndModes(material, osg::StateAttribute::ON);
}

/// Moves on to exactly `count` spheres; those that are there stay when their number is right.
void resize(osg::Switch& spheres, unsigned long long count)
{
    if (spheres.getNumChildren() == count) {
        return;
    }
    spheres.removeChildren(0, spheres.getNumChildren());
    for (unsigned long long i = 0; i < count; ++i) {
        spheres.addChild(makeContactSphere());
    }
}

}  // namespace

ActorNameUpdateCallback::ActorNameUpdateCallback(osg::Node* anchor, osg::MatrixTransform* labelTransform,
                                                 osgText::Text3D* text)
    : m_opLabelTransform(labelTransform), m_opAnchor(anchor), m_opText(text)
{}

void ActorNameUpdateCallback::operator()(osg::Node* node, osg::NodeVisitor* visitor)
{
    if (isUpdate(visitor)) {
        follow();
    }
    traverse(node, visitor);
}

void ActorNameUpdateCallback::follow()
{
    osg::MatrixTransform* label = m_opLabelTransform.get();
    osg::Node* anchor = m_opAnchor.get();
    if (!m_opText.valid() || !label || !anchor || anchor->getNumParents() == 0) {
        return;
    }
    const auto* bone = dynamic_cast<const KivAnimation::Bone*>(anchor->getParent(0));
    if (!bone) {
        return;
    }
    m_bounds.reset();
    anchor->accept(m_bounds);
    const osg::BoundingBox& box = m_bounds.getBoundingBox();
    if (!box.valid()) {
        return;
    }
    const osg::Matrixd upright =
        osg::Matrixd::inverse(osg::Matrixd::rotate(bone->getMatrixInSkeletonSpace().getRotate()));
    // The box's extent stands for the height above the bone, not its top.
    const osg::Vec3d above((box.xMin() + box.xMax()) * 0.5, (box.yMin() + box.yMax()) * 0.5,
                           (box.zMax() - box.zMin()) + 0.5 * m_opText->getCharacterHeight() + kLabelGap);
    label->setMatrix(osg::Matrixd::translate(above) * upright);
}

GravityUpdateCallback::GravityUpdateCallback(osg::Switch* markerSwitch, const std::string& actorId)
    : m_strActorId(actorId),
      m_opMarkerSwitch(markerSwitch),
      m_spBuffer(new float[kGravityFloats]()),
      m_pBuffer(m_spBuffer.get())
{}

void GravityUpdateCallback::operator()(osg::Node* node, osg::NodeVisitor* visitor)
{
    osg::Switch* markers = m_opMarkerSwitch.get();
    if (isUpdate(visitor) && markers) {
        if (!KivRenderStateManager::instance()->getCenterOfMassShow()) {
            hide(*markers, 0);
        } else if (characterizationReady()) {
            follow(*markers);
        }
    }
    traverse(node, visitor);
}

void GravityUpdateCallback::follow(osg::Switch& markers)
{
    int tag = 0;
    unsigned long long count = 0;
    if (!ActorFrameManager::Ins()->ReadActorGravity(actorNumber(m_strActorId), &m_pBuffer, tag, count)) {
        hide(markers, 0);
        return;
    }
    const auto child = [&markers](unsigned int position) {
        return position < markers.getNumChildren()
                   ? dynamic_cast<osg::MatrixTransform*>(markers.getChild(position))
                   : nullptr;
    };
    osg::MatrixTransform* marker = child(0);
    osg::MatrixTransform* ground = child(1);
    if (!marker || !ground) {
        hide(markers, 0);
        return;
    }
    marker->setMatrix(osg::Matrixd::translate(m_pBuffer[0], -m_pBuffer[2], m_pBuffer[1]));
    ground->setMatrix(osg::Matrixd::translate(m_pBuffer[0], -m_pBuffer[2], 0.0));
    show(markers, 0);
}

StickContactUpdateCallback::StickContactUpdateCallback(osg::Switch* contactSwitch, const std::string& actorId)
    : m_strActorId(actorId),
      m_opContactSwitch(contactSwitch),
      m_spBuffer(new KivCommonDef::KIV_STICKCONTACT[kContactRecords]()),
      m_pBuffer(m_spBuffer.get()),
      m_noContactColor(0.0f, 0.0f, 1.0f, 1.0f),
      m_contactColor(1.0f, 0.0f, 0.0f, 1.0f)
{}

void StickContactUpdateCallback::operator()(osg::Node* node, osg::NodeVisitor* visitor)
{
    osg::Switch* spheres = m_opContactSwitch.get();
    if (isUpdate(visitor) && spheres && characterizationReady()) {
        follow(*spheres);
    }
    traverse(node, visitor);
}

void StickContactUpdateCallback::follow(osg::Switch& spheres)
{
    int tag = 0;
    unsigned long long count = 0;
    // Visibility is read at the second sphere, also for hiding: a single sphere is never hidden by a failed
    // read.
    if (!ActorFrameManager::Ins()->ReadActorStickContact(actorNumber(m_strActorId), &m_pBuffer, tag, count)) {
        hide(spheres, 1);
        return;
    }
    resize(spheres, count);
    const unsigned int readable =
        static_cast<unsigned int>(std::min<unsigned long long>(count, kContactRecords));
    for (unsigned int i = 0; i < readable; ++i) {
        if (auto* sphere = dynamic_cast<osg::MatrixTransform*>(spheres.getChild(i))) {
            place(*sphere, m_pBuffer[i]);
        }
    }
    show(spheres, 1);
}

void StickContactUpdateCallback::place(osg::MatrixTransform& sphere,
                                       const KivCommonDef::KIV_STICKCONTACT& contact) const
{
    sphere.setMatrix(osg::Matrixd::translate(kContactScale * contact.x, -kContactScale * contact.z,
                                             kContactScale * contact.y));
    osg::Drawable* drawable = sphere.getNumChildren() > 0 ? sphere.getChild(0)->asDrawable() : nullptr;
    if (drawable) {
        paint(*drawable, contact.contact != 0 ? m_contactColor : m_noContactColor);
    }
}

}  // namespace KivCharacterization
