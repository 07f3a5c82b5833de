#include "KivCharacterization/Characterization/actorscene.h"

#include <osg/CullFace>
#include <osg/LightModel>
#include <osg/MatrixTransform>
#include <osg/Shape>
#include <osg/ShapeDrawable>
#include <osg/StateSet>

#include "KivCharacterization/Characterization/ownmaterial.h"

namespace KivCharacterization {

namespace {

constexpr float kMarkerRadius = 10.0f;
constexpr float kGroundDiscHeight = 0.5f;

osg::ref_ptr<osg::MatrixTransform> makeMarker(const osg::ref_ptr<osg::Shape>& shape)
{
    osg::ref_ptr<osg::MatrixTransform> marker = new osg::MatrixTransform;
    const osg::ref_ptr<osg::ShapeDrawable> drawable = new osg::ShapeDrawable(shape.get());
    marker->addChild(drawable.get());
    return marker;
}

void makeTranslucent(osg::Node& marker)
{
    osg::StateSet* stateSet = marker.getOrCreateStateSet();
    const osg::ref_ptr<osg::Material> material = ownMaterial(*stateSet);
    stateSet->setMode(GL_BLEND, osg::StateAttribute::ON);
    material->setTransparency(osg::Material::FRONT_AND_BACK, 0.8f);
    stateSet->setAttributeAndModes(material.get(), osg::StateAttribute::ON);
    stateSet->setRenderingHint(osg::StateSet::TRANSPARENT_BIN);
    const osg::Vec4 darkRed(0.7f, 0.0f, 0.0f, 0.8f);
    material->setDiffuse(osg::Material::FRONT_AND_BACK, darkRed);
    material->setAmbient(osg::Material::FRONT_AND_BACK, darkRed);
}

}  // namespace

osg::ref_ptr<osg::Switch> makeSkeletonSwitch(osg::Node& skeleton)
{
    osg::ref_ptr<osg::Switch> skeletonSwitch = new osg::Switch;
    skeletonSwitch->addChild(&skeleton);
    skeletonSwitch->setAllChildrenOff();
    return skeletonSwitch;
}

osg::ref_ptr<osg::Switch> makeCentreOfMassSwitch()
{
    osg::ref_ptr<osg::Switch> markers = new osg::Switch;
    const osg::ref_ptr<osg::MatrixTransform> marker = makeMarker(new osg::Sphere(osg::Vec3(), kMarkerRadius));
    const osg::ref_ptr<osg::MatrixTransform> ground =
        makeMarker(new osg::Cylinder(osg::Vec3(), kMarkerRadius, kGroundDiscHeight));
    markers->addChild(marker.get());
    markers->addChild(ground.get());
    makeTranslucent(*marker);
    makeTranslucent(*ground);
    markers->setAllChildrenOff();
    return markers;
}

osg::ref_ptr<osg::Switch> makeContactSwitch()
{
    osg::ref_ptr<osg::Switch> contacts = new osg::Switch;
    contacts->setAllChildrenOff();
    return contacts;
}

void setSkeletonState(osg::Node& skeleton)
{
    osg::StateSet* stateSet = skeleton.getOrCreateStateSet();
    osg::ref_ptr<osg::LightModel> lightModel = new osg::LightModel;
    lightModel->setTwoSided(true);
    stateSet->setAttributeAndModes(lightModel.get(), osg::StateAttribute::ON);
    // OVERRIDE without ON: the mode is off, and nothing below can turn it on.
    stateSet->setAttributeAndModes(new osg::CullFace(osg::CullFace::BACK), osg::StateAttribute::OVERRIDE);
}

}  // namespace KivCharacterization
