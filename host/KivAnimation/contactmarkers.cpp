#include "host/KivAnimation/contactmarkers.h"

#include <osg/Material>
#include <osg/Shape>
#include <osg/StateSet>

namespace KivAnimation {

namespace {

constexpr float kMarkerRadius = 2.5f;                     // centimetres
constexpr osg::Node::NodeMask kOverlayMask = 0x00000004;  // what the overlays of a character carry

osg::ref_ptr<osg::ShapeDrawable> makeSphere()
{
    const osg::ref_ptr<osg::Sphere> shape = new osg::Sphere(osg::Vec3(), kMarkerRadius);
    osg::ref_ptr<osg::ShapeDrawable> sphere = new osg::ShapeDrawable(shape.get());
    sphere->setName("ContactMarker");
    sphere->setNodeMask(kOverlayMask);
    sphere->setDataVariance(osg::Object::DYNAMIC);
    osg::ref_ptr<osg::Material> material = new osg::Material;
    material->setDataVariance(osg::Object::DYNAMIC);
    osg::StateSet* state = sphere->getOrCreateStateSet();
    state->setDataVariance(osg::Object::DYNAMIC);
    state->setAttributeAndModes(material, osg::StateAttribute::ON);
    return sphere;
}

void paintSphere(osg::ShapeDrawable& sphere, const osg::Vec4f& color)
{
    auto* material = static_cast<osg::Material*>(
        sphere.getOrCreateStateSet()->getAttribute(osg::StateAttribute::MATERIAL));
    material->setDiffuse(osg::Material::FRONT_AND_BACK, color);
    material->setAmbient(osg::Material::FRONT_AND_BACK, color);
}

}  // namespace

std::string_view withoutQualifier(std::string_view name)
{
    return name.substr(name.find('#') + 1);  // where there is none, npos + 1 is the beginning
}

void ContactMarkers::paint(const std::string& jointName, Bone& bone, const osg::Vec4f& color)
{
    Marker& marker = m_markers[std::string(withoutQualifier(jointName))];
    marker.color = color;
    osg::ref_ptr<osg::ShapeDrawable> sphere;
    if (!marker.sphere.lock(sphere) || !bone.containsNode(sphere)) {
        sphere = makeSphere();
        bone.addChild(sphere);
        marker.sphere = sphere;
    }
    paintSphere(*sphere, color);
}

const osg::Vec4f* ContactMarkers::color(const std::string& jointName) const
{
    const auto found = m_markers.find(std::string(withoutQualifier(jointName)));
    return found == m_markers.end() ? nullptr : &found->second.color;
}

}  // namespace KivAnimation
