#include "apps/kivplayer/content/surfaces.h"

#include <gtest/gtest.h>
#include <osg/Billboard>
#include <osg/Geometry>
#include <osg/Material>
#include <osg/Switch>
#include <osgText/Text>

namespace {

bool hasFlag(const osg::Node& node, const char* name)
{
    const osg::StateSet* state = node.getStateSet();
    const osg::Uniform* uniform = state ? state->getUniform(name) : nullptr;
    bool value = false;
    return uniform && uniform->get(value) && value;
}

osg::ref_ptr<osg::Geometry> coloured(osg::Array::Binding binding)
{
    osg::ref_ptr<osg::Geometry> geometry = new osg::Geometry;
    geometry->setColorArray(new osg::Vec4Array(binding, 1));
    return geometry;
}

TEST(Surfaces, takeTheirColourFromVerticesUnlessAMaterialForbidsIt)
{
    const osg::ref_ptr<osg::Group> actor = new osg::Group;
    const osg::ref_ptr<osg::Group> painted = new osg::Group;
    const osg::ref_ptr<osg::Material> material = new osg::Material;
    material->setColorMode(osg::Material::OFF);
    painted->getOrCreateStateSet()->setAttribute(material);
    const auto own = coloured(osg::Array::BIND_PER_VERTEX);
    const auto none = coloured(osg::Array::BIND_OFF);
    const auto below = coloured(osg::Array::BIND_PER_VERTEX);
    actor->addChild(own);
    actor->addChild(none);
    painted->addChild(below);
    actor->addChild(painted);
    KivPlayer::describeSurfaces(*actor);
    EXPECT_TRUE(hasFlag(*own, "kivColourFromVertices"));
    EXPECT_FALSE(hasFlag(*none, "kivColourFromVertices"));
    EXPECT_FALSE(hasFlag(*below, "kivColourFromVertices"));
}

TEST(Surfaces, castNoShadowBelowAnOverlaysSwitchEvenWhileItIsHidden)
{
    const osg::ref_ptr<osg::Group> actor = new osg::Group;
    const osg::ref_ptr<osg::Switch> overlay = new osg::Switch;
    const osg::ref_ptr<osg::Switch> other = new osg::Switch;
    overlay->setNodeMask(4);
    actor->addChild(overlay);
    actor->addChild(other);
    KivPlayer::describeSurfaces(*actor);
    EXPECT_TRUE(hasFlag(*overlay, "kivCastsNoShadow"));
    EXPECT_FALSE(hasFlag(*other, "kivCastsNoShadow"));
}

TEST(Surfaces, areUnlitWhereTheyAreText)
{
    const osg::ref_ptr<osg::Billboard> label = new osg::Billboard;
    const osg::ref_ptr<osg::Billboard> shape = new osg::Billboard;
    label->addDrawable(new osgText::Text);
    shape->addDrawable(new osg::Geometry);
    KivPlayer::describeSurfaces(*label);
    KivPlayer::describeSurfaces(*shape);
    EXPECT_TRUE(hasFlag(*label, "kivUnlit"));
    EXPECT_FALSE(hasFlag(*shape, "kivUnlit"));
}

}  // namespace
