#include "KivCharacterization/Characterization/piececopy.h"

#include <gtest/gtest.h>
#include <osg/Geode>
#include <osg/Geometry>
#include <osg/LOD>
#include <osg/MatrixTransform>
#include <osg/ShapeDrawable>
#include <osg/Texture2D>

#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace KivCharacterization {

namespace {

template <typename Array>
osg::ref_ptr<Array> arrayOf(std::initializer_list<typename Array::ElementDataType> values)
{
    return new Array(values.begin(), values.end());
}

/// Meshes with every kind of array and primitive set, with and without states, one below another kind of
/// group.
osg::ref_ptr<osg::MatrixTransform> richPiece()
{
    osg::ref_ptr<osg::Geometry> mesh = new osg::Geometry;
    mesh->setName("mesh");
    mesh->setVertexArray(arrayOf<osg::Vec3Array>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}));
    mesh->setNormalArray(arrayOf<osg::Vec3Array>({{0, 0, 1}}), osg::Array::BIND_OVERALL);
    mesh->setColorArray(arrayOf<osg::Vec4ubArray>({{1, 2, 3, 4}}), osg::Array::BIND_OVERALL);
    mesh->setTexCoordArray(0, arrayOf<osg::Vec2Array>({{0, 0}, {1, 0}, {0, 1}}), osg::Array::BIND_PER_VERTEX);
    mesh->addPrimitiveSet(new osg::DrawArrays(GL_TRIANGLES, 0, 3));
    const GLuint lines[] = {0, 1, 1, 2};
    mesh->addPrimitiveSet(new osg::DrawElementsUInt(GL_LINES, 4, lines));
    mesh->getOrCreateStateSet()->setTextureAttribute(0, new osg::Texture2D);
    mesh->getStateSet()->addUniform(new osg::Uniform("shade", 0.5f));
    osg::ref_ptr<osg::Geode> geode = new osg::Geode;
    geode->addDrawable(mesh.get());
    geode->addDrawable(new osg::ShapeDrawable(new osg::Sphere(osg::Vec3(1, 2, 3), 4)));
    osg::ref_ptr<osg::LOD> levels = new osg::LOD;
    levels->addChild(geode.get(), 10, 20);
    osg::ref_ptr<osg::MatrixTransform> piece = new osg::MatrixTransform(osg::Matrixd::translate(1, 2, 3));
    piece->setName("Joint:Hips$");
    piece->setNodeMask(5);
    piece->addChild(levels.get());
    piece->addChild(new osg::Geometry);
    piece->getOrCreateStateSet()->setMode(GL_LIGHTING, osg::StateAttribute::OFF);
    return piece;
}

/// Everything that a piece is made of, in the order of a walk.
class Parts : public osg::NodeVisitor
{
public:
    explicit Parts(osg::Node& root) : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN)
    {
        setNodeMaskOverride(~0u);
        root.accept(*this);
    }

    void apply(osg::Node& node) override
    {
        add(&node);
        if (const osg::StateSet* state = node.getStateSet()) {
            add(state);
            add(state->getTextureAttribute(0, osg::StateAttribute::TEXTURE));
            add(state->getUniform("shade"));
        }
        traverse(node);
    }

    void apply(osg::Geometry& mesh) override
    {
        for (const osg::Array* array :
             {mesh.getVertexArray(), mesh.getNormalArray(), mesh.getColorArray(), mesh.getTexCoordArray(0)}) {
            add(array);
            add(array ? array->getVertexBufferObject() : nullptr);
        }
        for (const auto& primitives : mesh.getPrimitiveSetList()) {
            add(primitives.get());
        }
        apply(static_cast<osg::Node&>(mesh));
    }

    std::vector<const osg::Object*> all;
    std::vector<std::string> classes;

private:
    void add(const osg::Object* part)
    {
        all.push_back(part);
        classes.push_back(part ? part->className() + (" " + part->getName()) : "none");
    }
};

TEST(APieceCopy, isMadeOfTheSameThingsAsOpenSceneGraphsOwn)
{
    const auto piece = richPiece();
    const osg::ref_ptr<osg::Object> copy = piece->clone(PieceCopy());
    const osg::ref_ptr<osg::Object> own = piece->clone(osg::CopyOp::DEEP_COPY_ALL);
    const Parts copied(dynamic_cast<osg::Node&>(*copy));
    EXPECT_EQ(copied.classes, Parts(dynamic_cast<osg::Node&>(*own)).classes);
    EXPECT_GT(copied.classes.size(), 25U);
}

TEST(APieceCopy, sharesNothingWithItsOriginal)
{
    const auto piece = richPiece();
    const osg::ref_ptr<osg::Object> copy = piece->clone(PieceCopy());
    Parts copied(dynamic_cast<osg::Node&>(*copy));
    std::set<const osg::Object*> originals;
    for (const osg::Object* part : Parts(*piece).all) {
        originals.insert(part);
    }
    originals.erase(nullptr);
    for (std::size_t i = 0; i < copied.all.size(); ++i) {
        EXPECT_EQ(originals.count(copied.all[i]), 0U) << copied.classes[i];
    }
}

TEST(APieceCopy, sharesNothingMoreThanOpenSceneGraphsOwnDeepCopy)
{
    const auto piece = richPiece();
    const osg::ref_ptr<osg::Object> copy = piece->clone(PieceCopy());
    const osg::ref_ptr<osg::Object> own = piece->clone(osg::CopyOp::DEEP_COPY_ALL);
    const auto sharing = [](const osg::ref_ptr<osg::Object>& of) {
        // Which parts of one piece are the same object: vertex buffers, for one, are those of a whole mesh.
        std::map<const osg::Object*, std::size_t> first;
        std::vector<std::size_t> same;
        const Parts parts(dynamic_cast<osg::Node&>(*of));
        for (const osg::Object* part : parts.all) {
            same.push_back(first.emplace(part, first.size()).first->second);
        }
        return same;
    };
    EXPECT_EQ(sharing(copy), sharing(own));
}

TEST(APieceCopy, hasTheSameFiguresInIt)
{
    const auto piece = richPiece();
    const osg::ref_ptr<osg::Object> copy = piece->clone(PieceCopy());
    const auto* transform = dynamic_cast<const osg::MatrixTransform*>(copy.get());
    ASSERT_NE(transform, nullptr);
    EXPECT_EQ(transform->getMatrix(), piece->getMatrix());
    EXPECT_EQ(transform->getNodeMask(), 5U);
    const auto* levels = dynamic_cast<const osg::LOD*>(transform->getChild(0));
    ASSERT_NE(levels, nullptr);
    EXPECT_EQ(levels->getMaxRange(0), 20.0f);
    const osg::Geometry* mesh = levels->getChild(0)->asGroup()->getChild(0)->asGeometry();
    ASSERT_NE(mesh, nullptr);
    EXPECT_EQ((*static_cast<const osg::Vec3Array*>(mesh->getVertexArray()))[1], osg::Vec3(1, 0, 0));
    EXPECT_EQ(mesh->getColorBinding(), osg::Geometry::BIND_OVERALL);
    EXPECT_EQ(mesh->getPrimitiveSet(1)->index(3), 2U);
}

TEST(APieceCopy, ofNothingIsNothing)
{
    const PieceCopy copy;
    EXPECT_EQ(copy(static_cast<const osg::Node*>(nullptr)), nullptr);
    EXPECT_EQ(copy(static_cast<const osg::Drawable*>(nullptr)), nullptr);
    EXPECT_EQ(copy(static_cast<const osg::StateSet*>(nullptr)), nullptr);
    EXPECT_EQ(copy(static_cast<const osg::Array*>(nullptr)), nullptr);
    EXPECT_EQ(copy(static_cast<const osg::PrimitiveSet*>(nullptr)), nullptr);
}

}  // namespace

}  // namespace KivCharacterization
