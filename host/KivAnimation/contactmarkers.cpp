#include "host/KivAnimation/contactmarkers.h"

#include <osg/BlendColor>
#include <osg/BlendFunc>
#include <osg/CullFace>
#include <osg/Depth>
#include <osg/Material>
#include <osg/Shape>
#include <osg/ShapeDrawable>
#include <osg/StateSet>

#include "KivCharacterization/naming.h"

namespace KivAnimation {

namespace {

constexpr float kMarkerRadius = 2.5f;  // centimetres
constexpr float kOpacityBehind = 0.7f;
constexpr int kBin = 7;  // after bodies and ground, ahead of what is transparent
constexpr int kBinBehind = 8;

/// What is in sight of the sphere. It leaves no depth behind: so it throws no shadow, and what is behind a
/// body can be told from what is behind the sphere.
osg::ref_ptr<osg::StateSet> stateInSight()
{
    constexpr unsigned kProtected = osg::StateAttribute::ON | osg::StateAttribute::PROTECTED;
    osg::ref_ptr<osg::StateSet> state = new osg::StateSet;
    state->setDataVariance(osg::Object::DYNAMIC);
    osg::ref_ptr<osg::Material> material = new osg::Material;
    material->setDataVariance(osg::Object::DYNAMIC);
    state->setAttributeAndModes(material);
    state->setAttributeAndModes(new osg::Depth(osg::Depth::LESS, 0.0, 1.0, false));
    // The skeletons of characters are drawn from both sides.
    state->setAttributeAndModes(new osg::CullFace(osg::CullFace::BACK), kProtected);
    state->setRenderBinDetails(kBin, "DepthSortedBin");
    return state;
}

/// What a body hides of the sphere: seen through it, faintly.
osg::ref_ptr<osg::StateSet> stateBehind()
{
    osg::ref_ptr<osg::StateSet> state = new osg::StateSet;
    state->setAttributeAndModes(new osg::Depth(osg::Depth::GREATER, 0.0, 1.0, false));
    state->setAttributeAndModes(
        new osg::BlendFunc(osg::BlendFunc::CONSTANT_ALPHA, osg::BlendFunc::ONE_MINUS_CONSTANT_ALPHA));
    state->setAttribute(new osg::BlendColor(osg::Vec4(0.0f, 0.0f, 0.0f, kOpacityBehind)));
    state->setRenderBinDetails(kBinBehind, "DepthSortedBin");
    return state;
}

osg::ref_ptr<osg::Group> makeMarker()
{
    const osg::ref_ptr<osg::Sphere> shape = new osg::Sphere(osg::Vec3(), kMarkerRadius);
    const osg::ref_ptr<osg::ShapeDrawable> sphere = new osg::ShapeDrawable(shape.get());
    const osg::ref_ptr<osg::Group> behind = new osg::Group;
    behind->setStateSet(stateBehind());
    behind->addChild(sphere);
    osg::ref_ptr<osg::Group> marker = new osg::Group;
    marker->setName("ContactMarker");
    marker->setNodeMask(KivCharacterization::kOverlayMask);
    marker->setStateSet(stateInSight());
    marker->addChild(sphere);
    marker->addChild(behind);
    return marker;
}

void paintMarker(osg::Group& marker, const osg::Vec4f& color)
{
    auto* material =
        static_cast<osg::Material*>(marker.getStateSet()->getAttribute(osg::StateAttribute::MATERIAL));
    material->setDiffuse(osg::Material::FRONT_AND_BACK, color);
    material->setAmbient(osg::Material::FRONT_AND_BACK, color);
}

}  // namespace

void ContactMarkers::paint(const std::string& jointName, Bone& bone, const osg::Vec4f& color)
{
    Marker& marker = m_markers[KivCharacterization::NormaliseJointName(jointName)];
    marker.color = color;
    osg::ref_ptr<osg::Group> node;
    if (!marker.node.lock(node) || !bone.containsNode(node)) {
        node = makeMarker();
        bone.addChild(node);
        marker.node = node;
    }
    paintMarker(*node, color);
}

const osg::Vec4f* ContactMarkers::color(const std::string& jointName) const
{
    const auto found = m_markers.find(KivCharacterization::NormaliseJointName(jointName));
    return found == m_markers.end() ? nullptr : &found->second.color;
}

}  // namespace KivAnimation
