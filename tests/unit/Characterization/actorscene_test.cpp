#include "KivCharacterization/Characterization/actorscene.h"

#include <gtest/gtest.h>
#include <osg/CullFace>
#include <osg/LightModel>
#include <osg/Material>
#include <osg/MatrixTransform>
#include <osg/ShapeDrawable>

namespace {

using namespace KivCharacterization;

class CentreOfMassMarkers : public testing::Test
{
protected:
    /// The shape of one marker; null if it has none of this kind.
    template <typename Shape>
    const Shape* shapeOf(unsigned int child) const
    {
        const osg::Group* marker = markers->getChild(child)->asGroup();
        const osg::Drawable* drawable = marker->getChild(0)->asDrawable();
        return drawable ? dynamic_cast<const Shape*>(drawable->getShape()) : nullptr;
    }

    osg::ref_ptr<osg::Switch> markers = makeCentreOfMassSwitch();
};

TEST_F(CentreOfMassMarkers, areASphereAndADiscOnTheGroundAndNotShown)
{
    ASSERT_EQ(markers->getNumChildren(), 2u);
    EXPECT_FALSE(markers->getValue(0));
    EXPECT_FALSE(markers->getValue(1));

    const auto* sphere = shapeOf<osg::Sphere>(0);
    ASSERT_TRUE(sphere);
    EXPECT_EQ(sphere->getCenter(), osg::Vec3());
    EXPECT_EQ(sphere->getRadius(), 10.0f);

    const auto* disc = shapeOf<osg::Cylinder>(1);
    ASSERT_TRUE(disc);
    EXPECT_EQ(disc->getCenter(), osg::Vec3());
    EXPECT_EQ(disc->getRadius(), 10.0f);
    EXPECT_EQ(disc->getHeight(), 0.5f);
}

TEST_F(CentreOfMassMarkers, areDarkRedAndTranslucent)
{
    for (unsigned int child = 0; child < 2; ++child) {
        osg::StateSet* state = markers->getChild(child)->getStateSet();
        ASSERT_TRUE(state);
        EXPECT_EQ(state->getMode(GL_BLEND), osg::StateAttribute::ON);
        EXPECT_EQ(state->getRenderingHint(), osg::StateSet::TRANSPARENT_BIN);
        const auto* material =
            dynamic_cast<const osg::Material*>(state->getAttribute(osg::StateAttribute::MATERIAL));
        ASSERT_TRUE(material);
        // Neither forced onto what is below nor protected from what is above.
        EXPECT_EQ(state->getAttributePair(osg::StateAttribute::MATERIAL)->second, 0u);
        for (const auto face : {osg::Material::FRONT, osg::Material::BACK}) {
            EXPECT_EQ(material->getDiffuse(face), osg::Vec4(0.7f, 0.0f, 0.0f, 0.8f));
            EXPECT_EQ(material->getAmbient(face), osg::Vec4(0.7f, 0.0f, 0.0f, 0.8f));
            // A transparency of 0.8, where no colour of ours has replaced it.
            EXPECT_FLOAT_EQ(material->getSpecular(face).a(), 0.2f);
            EXPECT_FLOAT_EQ(material->getEmission(face).a(), 0.2f);
        }
    }
}

TEST_F(CentreOfMassMarkers, ofTwoActorsShareNothingThatCouldBeMovedOrPainted)
{
    const osg::ref_ptr<osg::Switch> others = makeCentreOfMassSwitch();
    for (unsigned int child = 0; child < 2; ++child) {
        osg::Node* own = markers->getChild(child);
        osg::Node* other = others->getChild(child);
        EXPECT_NE(own, other);
        EXPECT_NE(own->getStateSet(), other->getStateSet());
        osg::Node* ownShape = own->asGroup()->getChild(0);
        EXPECT_NE(ownShape, other->asGroup()->getChild(0));
        EXPECT_EQ(ownShape->getNumParents(), 1u);
        ownShape->getOrCreateStateSet()->setMode(GL_LIGHTING, osg::StateAttribute::OFF);
        EXPECT_EQ(other->asGroup()->getChild(0)->getStateSet(), nullptr);
    }
}

TEST(ContactSpheres, areNoneAtFirst)
{
    EXPECT_EQ(makeContactSwitch()->getNumChildren(), 0u);
}

TEST(SkeletonSwitch, holdsTheSkeletonAndHidesIt)
{
    const osg::ref_ptr<osg::Group> skeleton = new osg::Group;
    const osg::ref_ptr<osg::Switch> made = makeSkeletonSwitch(*skeleton);
    ASSERT_EQ(made->getNumChildren(), 1u);
    EXPECT_EQ(made->getChild(0), skeleton.get());
    EXPECT_FALSE(made->getValue(0));
}

TEST(SkeletonState, lightsBothSidesAndLetsNobodyCullTheBack)
{
    const osg::ref_ptr<osg::Group> skeleton = new osg::Group;
    setSkeletonState(*skeleton);
    const osg::StateSet* state = skeleton->getStateSet();
    const auto* light =
        dynamic_cast<const osg::LightModel*>(state->getAttribute(osg::StateAttribute::LIGHTMODEL));
    ASSERT_TRUE(light);
    EXPECT_TRUE(light->getTwoSided());
    EXPECT_EQ(state->getAttributePair(osg::StateAttribute::LIGHTMODEL)->second, 0u);
    const auto* cull = dynamic_cast<const osg::CullFace*>(state->getAttribute(osg::StateAttribute::CULLFACE));
    ASSERT_TRUE(cull);
    EXPECT_EQ(cull->getMode(), osg::CullFace::BACK);
    EXPECT_EQ(state->getMode(GL_CULL_FACE), osg::StateAttribute::OVERRIDE);
}

}  // namespace
