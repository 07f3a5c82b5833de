#include "KivCharacterization/Characterization/glyphfront.h"

#include <gtest/gtest.h>
#include <osg/Array>
#include <osg/PrimitiveSet>
#include <osg/TriangleFunctor>

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

#include "KivCharacterization/Characterization/modelloading.h"
#include "KivCharacterization/Characterization/namelabel.h"
#include "tests/support/builtpaths.h"
#include "tests/support/freshhost.h"

namespace KivCharacterization {

namespace {

using Corners = std::initializer_list<GLushort>;

osg::ref_ptr<osg::PrimitiveSet> triangles(Corners corners)
{
    return new osg::DrawElementsUShort(GL_TRIANGLES, corners.begin(), corners.end());
}

/// Six vertices along x whose normals are their places again.
osg::ref_ptr<osgText::GlyphGeometry> sixVertices()
{
    osg::ref_ptr<osg::Vec3Array> vertices = new osg::Vec3Array;
    for (int i = 0; i < 6; ++i) {
        vertices->push_back(osg::Vec3(static_cast<float>(i), 0, 0));
    }
    osg::ref_ptr<osgText::GlyphGeometry> glyph = new osgText::GlyphGeometry;
    glyph->setVertexArray(vertices.get());
    glyph->setNormalArray(vertices.get());
    return glyph;
}

std::vector<float> places(const osg::Vec3Array& array)
{
    std::vector<float> xs;
    for (const osg::Vec3& place : array) {
        xs.push_back(place.x());
    }
    return xs;
}

TEST(AGlyphsFront, isAllThatIsKept)
{
    const auto glyph = sixVertices();
    const osg::ref_ptr<osg::Vec3Array> before = glyph->getVertexArray();
    glyph->getFrontPrimitiveSetList().push_back(triangles({4, 2, 5}));
    glyph->getBackPrimitiveSetList().push_back(triangles({0, 1, 3}));
    glyph->getWallPrimitiveSetList().push_back(triangles({0, 2, 1}));

    EXPECT_TRUE(keepFrontOnly(*glyph));

    EXPECT_TRUE(glyph->getBackPrimitiveSetList().empty());
    EXPECT_TRUE(glyph->getWallPrimitiveSetList().empty());
    EXPECT_EQ(places(*glyph->getVertexArray()), (std::vector<float>{2, 4, 5}));
    EXPECT_EQ(places(*glyph->getNormalArray()), (std::vector<float>{2, 4, 5}));
    const osg::PrimitiveSet& front = *glyph->getFrontPrimitiveSetList().at(0);
    ASSERT_EQ(front.getNumIndices(), 3u);
    EXPECT_EQ(front.index(0), 1u);
    EXPECT_EQ(front.index(1), 0u);
    EXPECT_EQ(front.index(2), 2u);
    EXPECT_EQ(before->size(), 6u) << "somebody else may still draw the whole shape";
}

TEST(AGlyphsFront, isLeftAloneOnceItIsAllThereIs)
{
    const auto glyph = sixVertices();
    glyph->getFrontPrimitiveSetList().push_back(triangles({4, 2, 5}));
    EXPECT_FALSE(keepFrontOnly(*glyph));
    EXPECT_EQ(glyph->getVertexArray()->size(), 6u);
}

TEST(AGlyphsFront, keepsItsVerticesWhereTheyAreDrawnInTheirOrder)
{
    const auto glyph = sixVertices();
    glyph->getFrontPrimitiveSetList().push_back(new osg::DrawArrays(GL_TRIANGLES, 3, 3));
    glyph->getBackPrimitiveSetList().push_back(triangles({0, 1, 2}));
    EXPECT_TRUE(keepFrontOnly(*glyph));
    EXPECT_TRUE(glyph->getBackPrimitiveSetList().empty());
    EXPECT_EQ(glyph->getVertexArray()->size(), 6u);
}

TEST(AGlyphsFront, mayBeOfAGlyphWithoutVertices)
{
    const osg::ref_ptr<osgText::GlyphGeometry> glyph = new osgText::GlyphGeometry;
    glyph->getWallPrimitiveSetList().push_back(triangles({}));
    EXPECT_TRUE(keepFrontOnly(*glyph));
    EXPECT_FALSE(glyph->getVertexArray());
}

TEST(AGlyphsFront, keepsItsVerticesWhereThereAreNoNormals)
{
    const auto glyph = sixVertices();
    glyph->setNormalArray(nullptr);
    glyph->getFrontPrimitiveSetList().push_back(triangles({4, 2, 5}));
    glyph->getWallPrimitiveSetList().push_back(triangles({0, 2, 1}));
    EXPECT_TRUE(keepFrontOnly(*glyph));
    EXPECT_EQ(glyph->getVertexArray()->size(), 6u);
}

/// Sums up what a text shows.
struct Area
{
    void operator()(const osg::Vec3& a, const osg::Vec3& b, const osg::Vec3& c, bool = false)
    {
        sum += ((b - a) ^ (c - a)).length() / 2;
    }
    float sum = 0;
};

float area(const osgText::Text3D& text)
{
    osg::TriangleFunctor<Area> shown;
    text.accept(shown);
    return shown.sum;
}

osg::ref_ptr<osgText::Font> labelFont()
{
    FontTable fonts;
    if (!loadLabelFont(std::string(KivTestSupport::kRuntimeRoot) + "/Data/Font/arial.ttf", fonts)) {
        throw std::runtime_error("no font");
    }
    return fonts.begin()->second;
}

class ALabel : public KivTestSupport::FreshHost
{
};

TEST_F(ALabel, showsTheFrontsOfItsGlyphsWholeAndNothingElse)
{
    const std::string name = "Ann 8";
    const SNameLabel label = makeNameLabel(*labelFont(), name);
    osg::ref_ptr<osgText::Text3D> whole = new osgText::Text3D;
    whole->setFont(labelFont());
    whole->setStyle(label.text->getStyle());
    whole->setCharacterSize(label.text->getCharacterHeight());
    whole->setText(name);

    EXPECT_GT(area(*label.text), 0.1f);
    EXPECT_NEAR(area(*whole), 2 * area(*label.text), 1e-3f);
}

TEST_F(ALabel, isTheSameWhetherTheFontHasShownItsGlyphsBeforeOrNot)
{
    const osg::ref_ptr<osgText::Font> font = labelFont();
    const SNameLabel first = makeNameLabel(*font, "Ann 8");
    const SNameLabel second = makeNameLabel(*font, "Ann 8");
    EXPECT_FLOAT_EQ(area(*first.text), area(*second.text));
    EXPECT_EQ(first.text->getBoundingBox()._max, second.text->getBoundingBox()._max);
}

TEST_F(ALabel, keepsToFrontsInACopyAndUnderAnotherName)
{
    const SNameLabel label = makeNameLabel(*labelFont(), "Ann 8");
    const osg::ref_ptr<osg::Object> copy = label.text->clone(osg::CopyOp::SHALLOW_COPY);
    EXPECT_FLOAT_EQ(area(dynamic_cast<osgText::Text3D&>(*copy)), area(*label.text));
    const float before = area(*label.text);
    label.text->setText("Ann 88");
    const float eight = area(*label.text) - before;
    EXPECT_GT(eight, 0.0f);
    label.text->setText("8");
    EXPECT_NEAR(area(*label.text), eight, 1e-4f);
}

}  // namespace

}  // namespace KivCharacterization
