#include "KivCharacterization/Characterization/actorscene.h"

#include <osg/CullFace>
#include <osg/LightModel>
#include <osg/MatrixTransform>
#include <osg/Shape>
#include <osg/ShapeDrawable>
#include <osg/StateSet>
#include <osg/observer_ptr>

#include "KivCharacterization/Characterization/ownmaterial.h"

namespace KivCharacterization {

namespace {

constexpr float kMarkerRadius = 10.0f;
constexpr float kGroundDiscHeight = 0.5f;

/// The marker of any actor that there is, else a new one: building a sphere is a fifth of loading an actor.
/// Called by commands alone, so by one thread at a time.
template <typename MakeShape>
osg::ref_ptr<osg::ShapeDrawable> sharedShape(osg::observer_ptr<osg::ShapeDrawable>& built,
                                             const MakeShape& makeShape)
{
    osg::ref_ptr<osg::ShapeDrawable> drawable;
    if (!built.lock(drawable)) {
        const osg::ref_ptr<osg::Shape> shape = makeShape();
        drawable = new osg::ShapeDrawable(shape.get());
        drawable->getBound();  // or the frames of several actors would compute it
        built = drawable.get();
    }
    return drawable;
}

osg::ref_ptr<osg::ShapeDrawable> centreSphere()
{
    static osg::observer_ptr<osg::ShapeDrawable> s_opBuilt;
    return sharedShape(s_opBuilt, [] { return new osg::Sphere(osg::Vec3(), kMarkerRadius); });
}

osg::ref_ptr<osg::ShapeDrawable> groundDisc()
{
    static osg::observer_ptr<osg::ShapeDrawable> s_opBuilt;
    return sharedShape(s_opBuilt,
                       [] { return new osg::Cylinder(osg::Vec3(), kMarkerRadius, kGroundDiscHeight); });
}

osg::ref_ptr<osg::MatrixTransform> makeMarker(const osg::ref_ptr<osg::ShapeDrawable>& drawable)
{
    osg::ref_ptr<osg::MatrixTransform> marker = new osg::MatrixTransform;
    marker->addChild(drawable.get());
    return marker;
}

void makeTranslucent(osg::Node& marker)
{
    osg::StateSet* stateSet = marker.getOrCreateStateSet();
    const osg::ref_ptr<osg::Material> material = OwnMaterial(*stateSet);
    stateSet->setMode(GL_BLEND, osg::StateAttribute::ON);
    material->setTransparency(osg::Material::FRONT_AND_BACK, 0.8f);
    stateSet->setAttributeAndModes(material.get(), osg::StateAttribute::ON);
    stateSet->setRenderingHint(osg::StateSet::TRANSPARENT_BIN);
    const osg::Vec4 darkRed(0.7f, 0.0f, 0.0f, 0.8f);
    material->setDiffuse(osg::Material::FRONT_AND_BACK, darkRed);
    material->setAmbient(osg::Material::FRONT_AND_BACK, darkRed);
}

}  // namespace

osg::ref_ptr<osg::Switch> MakeSkeletonSwitch(osg::Node& skeleton)
{
    osg::ref_ptr<osg::Switch> skeletonSwitch = new osg::Switch;
    skeletonSwitch->addChild(&skeleton);
    skeletonSwitch->setAllChildrenOff();
    return skeletonSwitch;
}

osg::ref_ptr<osg::Switch> MakeCentreOfMassSwitch()
{
    osg::ref_ptr<osg::Switch> markers = new osg::Switch;
    const osg::ref_ptr<osg::MatrixTransform> marker = makeMarker(centreSphere());
    const osg::ref_ptr<osg::MatrixTransform> ground = makeMarker(groundDisc());
    markers->addChild(marker.get());
    markers->addChild(ground.get());
    makeTranslucent(*marker);
    makeTranslucent(*ground);
    markers->setAllChildrenOff();
    return markers;
}

osg::ref_ptr<osg::Switch> MakeContactSwitch()
{
    osg::ref_ptr<osg::Switch> contacts = new osg::Switch;
    contacts->setAllChildrenOff();
    return contacts;
}

void SetSkeletonState(osg::Node& skeleton)
{
    osg::StateSet* stateSet = skeleton.getOrCreateStateSet();
    osg::ref_ptr<osg::LightModel> lightModel = new osg::LightModel;
    lightModel->setTwoSided(true);
    stateSet->setAttributeAndModes(lightModel.get(), osg::StateAttribute::ON);
    // OVERRIDE without ON: the mode is off, and nothing below can turn it on.
    stateSet->setAttributeAndModes(new osg::CullFace(osg::CullFace::BACK), osg::StateAttribute::OVERRIDE);
}

}  // namespace KivCharacterization
