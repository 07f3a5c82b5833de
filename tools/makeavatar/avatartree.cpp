#include "tools/makeavatar/avatartree.h"

#include <map>
#include <osg/Geode>
#include <osg/Geometry>
#include <osg/Material>
#include <osg/MatrixTransform>
#include <stdexcept>

namespace KivAvatarMaker {

namespace {

osg::ref_ptr<osg::Geometry> makeGeometry(const Mesh& mesh)
{
    osg::ref_ptr<osg::Vec3Array> positions = new osg::Vec3Array(osg::Array::BIND_PER_VERTEX);
    osg::ref_ptr<osg::Vec3Array> normals = new osg::Vec3Array(osg::Array::BIND_PER_VERTEX);
    osg::ref_ptr<osg::Vec4Array> colours = new osg::Vec4Array(osg::Array::BIND_PER_VERTEX);
    for (const Vertex& vertex : mesh.vertices) {
        positions->push_back(osg::Vec3(vertex.position));
        normals->push_back(osg::Vec3(vertex.normal));
        colours->push_back(vertex.colour);
    }
    osg::ref_ptr<osg::DrawElementsUShort> triangles = new osg::DrawElementsUShort(GL_TRIANGLES);
    for (const unsigned index : mesh.indices)
        triangles->push_back(static_cast<GLushort>(index));

    osg::ref_ptr<osg::Geometry> geometry = new osg::Geometry;
    geometry->setVertexArray(positions);
    geometry->setNormalArray(normals);
    geometry->setColorArray(colours);
    geometry->addPrimitiveSet(triangles);
    geometry->setUseDisplayList(false);
    geometry->setUseVertexBufferObjects(true);
    return geometry;
}

osg::ref_ptr<osg::StateSet> makeSurface()
{
    osg::ref_ptr<osg::Material> material = new osg::Material;
    material->setColorMode(osg::Material::AMBIENT_AND_DIFFUSE);
    material->setSpecular(osg::Material::FRONT_AND_BACK, osg::Vec4(0.20f, 0.20f, 0.20f, 1.0f));
    material->setShininess(osg::Material::FRONT_AND_BACK, 28.0f);
    osg::ref_ptr<osg::StateSet> surface = new osg::StateSet;
    surface->setAttributeAndModes(material, osg::StateAttribute::ON);
    return surface;
}

osg::ref_ptr<osg::MatrixTransform> makePieceNode(const Piece& piece, osg::StateSet* surface)
{
    const osg::Vec3d origin = pieceOrigin(piece);
    osg::ref_ptr<osg::Geometry> geometry = makeGeometry(moved(piece.mesh, -origin));
    geometry->setStateSet(surface);
    osg::ref_ptr<osg::Geode> geode = new osg::Geode;
    geode->addDrawable(geometry);
    osg::ref_ptr<osg::MatrixTransform> node = new osg::MatrixTransform;
    node->setName(piece.name());
    node->setMatrix(osg::Matrixd::translate(origin - restPoint(piece.joint)));
    node->addChild(geode);
    return node;
}

using JointNodes = std::map<std::string, osg::ref_ptr<osg::MatrixTransform>>;

void addJoint(const KivFigure::RestJoint& joint, osg::Group* root, JointNodes& nodes)
{
    osg::ref_ptr<osg::MatrixTransform> node = new osg::MatrixTransform;
    node->setName(joint.name);
    node->setMatrix(osg::Matrixd::translate(joint.offset[0], joint.offset[1], joint.offset[2]));
    osg::Group* parent = joint.parent.empty() ? root : nodes.at(joint.parent).get();
    parent->addChild(node);
    nodes[joint.name] = node;
}

}  // namespace

osg::ref_ptr<osg::Group> makeAvatarTree(const std::vector<Piece>& pieces)
{
    osg::ref_ptr<osg::Group> root = new osg::Group;
    root->setName("Avatar");
    JointNodes nodes;
    for (const auto* table : {&KivFigure::restJoints(), &KivFigure::propsJoints()})
        for (const KivFigure::RestJoint& joint : *table)
            addJoint(joint, root, nodes);

    const osg::ref_ptr<osg::StateSet> surface = makeSurface();
    std::map<std::string, unsigned> placed;
    for (const Piece& piece : pieces) {
        const auto found = nodes.find(piece.joint);
        if (found == nodes.end())
            throw std::invalid_argument("piece " + piece.name() + " hangs on an unknown joint");
        found->second->insertChild(placed[piece.joint]++, makePieceNode(piece, surface));
    }
    return root;
}

}  // namespace KivAvatarMaker
