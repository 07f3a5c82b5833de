#include "KivCharacterization/Characterization/scenedefect.h"

#include <gtest/gtest.h>
#include <osg/Geode>
#include <osg/Geometry>
#include <osg/MatrixTransform>

#include <limits>
#include <string>

#include "tests/support/figures.h"

namespace {

using namespace KivCharacterization;
using namespace KivTestSupport;

struct Defect
{
    const char* name;
    void (*spoil)(osg::Geometry& geometry, osg::MatrixTransform& transform);
    const char* reason;
};

class DamagedScenes : public testing::TestWithParam<Defect>
{
};

TEST_P(DamagedScenes, areNamedAsDefect)
{
    osg::ref_ptr<osg::Geometry> triangle = new osg::Geometry;
    osg::ref_ptr<osg::Vec3Array> vertices = new osg::Vec3Array(3);
    (*vertices)[1].set(1, 0, 0);
    (*vertices)[2].set(0, 1, 0);
    triangle->setVertexArray(vertices);
    triangle->setNormalArray(new osg::Vec3Array(3), osg::Array::BIND_PER_VERTEX);
    triangle->addPrimitiveSet(new osg::DrawArrays(GL_TRIANGLES, 0, 3));
    osg::ref_ptr<osg::MatrixTransform> transform = new osg::MatrixTransform;
    transform->setName("Hips");
    transform->addChild(triangle);
    ASSERT_EQ(sceneDefect(*transform), "");
    GetParam().spoil(*triangle, *transform);
    EXPECT_EQ(sceneDefect(*transform), GetParam().reason);
    transform->removeChildren(0, transform->getNumChildren());  // a circle would keep itself alive
}

INSTANTIATE_TEST_SUITE_P(
    , DamagedScenes,
    testing::Values(
        Defect{"aMatrixThatIsNotFinite",
               [](osg::Geometry&, osg::MatrixTransform& transform) {
                   transform.setMatrix(osg::Matrixd::scale(std::numeric_limits<double>::quiet_NaN(), 1, 1));
               },
               "the matrix of \"Hips\" is not finite"},
        Defect{"aVertexThatIsNotFinite",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   (*static_cast<osg::Vec3Array*>(geometry.getVertexArray()))[2].x() =
                       std::numeric_limits<float>::infinity();
               },
               "a vertex is not finite"},
        Defect{"aMatrixThatIsTooLarge",
               [](osg::Geometry&, osg::MatrixTransform& transform) {
                   transform.setMatrix(osg::Matrixd::scale(1e300, 1e300, 1e300));
               },
               "\"Hips\" is too large to have a bound"},
        Defect{"aVertexThatIsTooFarAway",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   (*static_cast<osg::Vec3Array*>(geometry.getVertexArray()))[2].x() = -3e32f;
                   geometry.setName("Mesh");
                   geometry.dirtyBound();
               },
               "\"Mesh\" is too large to have a bound"},
        Defect{"anIndexBehindTheLastVertex",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   osg::ref_ptr<osg::DrawElementsUShort> indices = new osg::DrawElementsUShort(GL_TRIANGLES);
                   indices->push_back(0);
                   indices->push_back(1);
                   indices->push_back(3);
                   geometry.setPrimitiveSet(0, indices);
               },
               "an index points outside the vertices"},
        Defect{"aDrawBehindTheLastVertex",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setPrimitiveSet(0, new osg::DrawArrays(GL_TRIANGLES, 1, 3));
               },
               "an index points outside the vertices"},
        Defect{"tooFewNormals",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setNormalArray(new osg::Vec3Array(2), osg::Array::BIND_PER_VERTEX);
               },
               "a geometry has an array that is shorter than its vertices"},
        Defect{"tooFewTextureCoordinates",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setTexCoordArray(1, new osg::Vec2Array(2), osg::Array::BIND_PER_VERTEX);
               },
               "a geometry has an array that is shorter than its vertices"},
        Defect{"aDrawBeforeTheFirstVertex",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setPrimitiveSet(0, new osg::DrawArrays(GL_TRIANGLES, -2, 3));
               },
               "an index points outside the vertices"},
        Defect{"aNodeBelowItself",
               [](osg::Geometry&, osg::MatrixTransform& transform) {
                   osg::ref_ptr<osg::Group> inner = new osg::Group;
                   transform.addChild(inner);
                   inner->addChild(&transform);
               },
               "a node lies below itself"},
        Defect{"aDoubleVertexThatIsNotFinite",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   osg::ref_ptr<osg::Vec3dArray> vertices = new osg::Vec3dArray(3);
                   (*vertices)[2].y() = -std::numeric_limits<double>::infinity();
                   geometry.setVertexArray(vertices);
               },
               "a vertex is not finite"},
        Defect{"aVertexOfFourNumbersThatIsNotFinite",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   osg::ref_ptr<osg::Vec4Array> vertices = new osg::Vec4Array(3);
                   (*vertices)[2].z() = std::numeric_limits<float>::quiet_NaN();
                   geometry.setVertexArray(vertices);
               },
               "a vertex is not finite"},
        Defect{"aPrimitiveSetThatIsNone",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.getPrimitiveSetList().front() = nullptr;
               },
               "a geometry has an empty primitive set"},
        Defect{"tooFewColours",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setColorArray(new osg::Vec4Array(2), osg::Array::BIND_PER_VERTEX);
               },
               "a geometry has an array that is shorter than its vertices"},
        Defect{"tooFewSecondaryColours",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setSecondaryColorArray(new osg::Vec4Array(2), osg::Array::BIND_PER_VERTEX);
               },
               "a geometry has an array that is shorter than its vertices"},
        Defect{"tooFewFogCoordinates",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setFogCoordArray(new osg::FloatArray(2), osg::Array::BIND_PER_VERTEX);
               },
               "a geometry has an array that is shorter than its vertices"},
        Defect{"tooFewVertexAttributes",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setVertexAttribArray(0, new osg::FloatArray(2), osg::Array::BIND_PER_VERTEX);
               },
               "a geometry has an array that is shorter than its vertices"},
        Defect{"aRunOfDrawsBeforeTheFirstVertex",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   osg::ref_ptr<osg::DrawArrayLengths> runs = new osg::DrawArrayLengths(GL_TRIANGLES, -1);
                   runs->push_back(3);
                   geometry.setPrimitiveSet(0, runs);
               },
               "an index points outside the vertices"},
        Defect{"aRunOfDrawsBehindTheLastVertex",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   osg::ref_ptr<osg::DrawArrayLengths> runs = new osg::DrawArrayLengths(GL_TRIANGLES, 1);
                   runs->push_back(3);
                   geometry.setPrimitiveSet(0, runs);
               },
               "an index points outside the vertices"},
        Defect{"noVertices",
               [](osg::Geometry& geometry, osg::MatrixTransform&) { geometry.setVertexArray(nullptr); },
               "a geometry has no vertices"},
        Defect{"aVertexListWithoutVertices",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setVertexArray(new osg::Vec3Array);
               },
               "a geometry has no vertices"},
        Defect{"verticesThatAreTooFarApart",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   auto& vertices = *static_cast<osg::Vec3Array*>(geometry.getVertexArray());
                   vertices[1].set(3e32f, 0, 0);
                   vertices[2].set(-3e32f, 0, 0);
                   geometry.setName("Mesh");
                   geometry.dirtyBound();
               },
               "\"Mesh\" is too large to have a bound"},
        Defect{"verticesOfAnOddType",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setVertexArray(new osg::UIntArray(3));
               },
               "vertices are of no type that can be drawn"},
        Defect{"nodesNestedTooDeeply",
               [](osg::Geometry&, osg::MatrixTransform& transform) {
                   osg::ref_ptr<osg::Group> at = new osg::Group;
                   transform.addChild(at);
                   for (int depth = 0; depth < 300; ++depth) {
                       osg::ref_ptr<osg::Group> next = new osg::Group;
                       at->addChild(next);
                       at = next;
                   }
               },
               "nodes are nested more than 256 deep"}),
    [](const auto& tested) { return std::string(tested.param.name); });

osg::ref_ptr<osg::Geometry> triangleWith(float corner)
{
    osg::ref_ptr<osg::Geometry> triangle = new osg::Geometry;
    osg::ref_ptr<osg::Vec3Array> vertices = new osg::Vec3Array(3);
    (*vertices)[1].x() = corner;
    triangle->setVertexArray(vertices);
    triangle->addPrimitiveSet(new osg::DrawArrays(GL_TRIANGLES, 0, 3));
    return triangle;
}

/// What looks like a defect and is none.
struct Oddity
{
    const char* name;
    osg::ref_ptr<osg::Node> (*make)();
};

class OddScenes : public testing::TestWithParam<Oddity>
{
};

TEST_P(OddScenes, areSound)
{
    const osg::ref_ptr<osg::MatrixTransform> hips = avatarNode("Hips");
    hips->addChild(GetParam().make());
    EXPECT_EQ(sceneDefect(*hips), "");
}

INSTANTIATE_TEST_SUITE_P(
    , OddScenes,
    testing::Values(
        Oddity{"aGroupWithoutChildren", []() -> osg::ref_ptr<osg::Node> { return new osg::Group; }},
        Oddity{"aGeometryWithNothingInIt", []() -> osg::ref_ptr<osg::Node> { return new osg::Geometry; }},
        Oddity{"aGeometryThatDrawsNothing",
               []() -> osg::ref_ptr<osg::Node> {
                   const auto triangle = triangleWith(1.0f);
                   triangle->setPrimitiveSet(0, new osg::DrawArrays(GL_TRIANGLES, 0, 0));
                   return triangle;
               }},
        Oddity{"aRunOfDrawsAlongTheVertices",
               []() -> osg::ref_ptr<osg::Node> {
                   const auto triangle = triangleWith(1.0f);
                   osg::ref_ptr<osg::DrawArrayLengths> runs = new osg::DrawArrayLengths(GL_TRIANGLES, 0);
                   runs->push_back(3);
                   triangle->setPrimitiveSet(0, runs);
                   return triangle;
               }},
        Oddity{"oneColourForAllVertices",
               []() -> osg::ref_ptr<osg::Node> {
                   const auto triangle = triangleWith(1.0f);
                   triangle->setColorArray(new osg::Vec4Array(1), osg::Array::BIND_OVERALL);
                   return triangle;
               }},
        Oddity{"aMeshUnderTwoParents",
               []() -> osg::ref_ptr<osg::Node> {
                   const auto triangle = triangleWith(1.0f);
                   osg::ref_ptr<osg::Group> both = new osg::Group;
                   for (int i = 0; i < 2; ++i) {
                       const osg::ref_ptr<osg::Group> parent = new osg::Group;
                       parent->addChild(triangle);
                       both->addChild(parent);
                   }
                   return both;
               }},
        Oddity{"aDrawableThatIsNoMesh", []() -> osg::ref_ptr<osg::Node> { return new osg::Drawable; }}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(DamagedMeshes, areNamedWhereverTheDamagedMeshStandsAmongSoundOnes)
{
    const auto sound = triangleWith(1.0f);
    const auto damaged = triangleWith(std::numeric_limits<float>::quiet_NaN());
    for (const bool damagedFirst : {true, false}) {
        osg::ref_ptr<osg::Group> scene = new osg::Group;
        scene->addChild(damagedFirst ? damaged : sound);
        scene->addChild(damagedFirst ? sound : damaged);
        EXPECT_EQ(sceneDefect(*scene), "a vertex is not finite");
    }
}

}  // namespace
