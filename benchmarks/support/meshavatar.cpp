#include "benchmarks/support/meshavatar.h"

#include <osg/Geode>
#include <osg/Geometry>
#include <osg/Math>

#include <cmath>
#include <map>
#include <stdexcept>

#include "KivCharacterization/Characterization/modelloading.h"
#include "KivCharacterization/naming.h"
#include "tools/figure/restfigure.h"

namespace KivBenchmark {

namespace {

using KivCharacterization::CommonTypeDef::SIveInfo;

/// A ball of rings and as many sides.
osg::ref_ptr<osg::Geometry> ball(unsigned triangles)
{
    const auto rings = static_cast<unsigned>(std::lround(std::sqrt(triangles / 2.0)));
    osg::ref_ptr<osg::Vec3Array> places = new osg::Vec3Array;
    osg::ref_ptr<osg::Vec3Array> normals = new osg::Vec3Array;
    osg::ref_ptr<osg::DrawElementsUShort> corners = new osg::DrawElementsUShort(GL_TRIANGLES);
    for (unsigned ring = 0; ring <= rings; ++ring) {
        const double height = osg::PI * ring / rings;
        for (unsigned side = 0; side <= rings; ++side) {
            const double turn = 2.0 * osg::PI * side / rings;
            const osg::Vec3d normal(std::sin(height) * std::cos(turn), std::cos(height),
                                    std::sin(height) * std::sin(turn));
            normals->push_back(normal);
            places->push_back(normal * 4.0);
        }
    }
    osg::ref_ptr<osg::Vec4Array> colours = new osg::Vec4Array(places->getNumElements());
    const auto corner = [rings](unsigned ring, unsigned side) {
        return static_cast<GLushort>(ring * (rings + 1) + side);
    };
    for (unsigned ring = 0; ring < rings; ++ring) {
        for (unsigned side = 0; side < rings; ++side) {
            for (const GLushort index :
                 {corner(ring, side), corner(ring, side + 1), corner(ring + 1, side), corner(ring + 1, side),
                  corner(ring, side + 1), corner(ring + 1, side + 1)})
                corners->push_back(index);
        }
    }
    osg::ref_ptr<osg::Geometry> mesh = new osg::Geometry;
    mesh->setVertexArray(places);
    mesh->setNormalArray(normals, osg::Array::BIND_PER_VERTEX);
    mesh->setColorArray(colours, osg::Array::BIND_PER_VERTEX);
    mesh->addPrimitiveSet(corners);
    mesh->setUseVertexBufferObjects(true);
    return mesh;
}

void addPiece(osg::Group& joint, const std::string& name, unsigned triangles)
{
    osg::ref_ptr<osg::Geode> geode = new osg::Geode;
    geode->addDrawable(ball(triangles));
    osg::ref_ptr<osg::MatrixTransform> piece = new osg::MatrixTransform;
    piece->setName(name);
    piece->addChild(geode);
    joint.addChild(piece);
}

std::string pieceName(const std::string& body)
{
    return std::string(KivCharacterization::kPiecePrefix) + body + KivCharacterization::kPieceEndMark;
}

using Joints = std::map<std::string, osg::ref_ptr<osg::MatrixTransform>>;

/// The rest figure, bare.
osg::ref_ptr<osg::Group> restJoints(Joints& joints)
{
    osg::ref_ptr<osg::Group> model = new osg::Group;
    for (const KivFigure::RestJoint& source : KivFigure::restJoints()) {
        osg::ref_ptr<osg::MatrixTransform> joint = new osg::MatrixTransform(
            osg::Matrixd::translate(source.offset[0], source.offset[1], source.offset[2]));
        joint->setName(source.name);
        osg::Group* parent = model.get();
        if (!source.parent.empty())
            parent = joints.at(source.parent).get();
        parent->addChild(joint);
        joints[source.name] = joint;
    }
    return model;
}

SIveInfo analysed(osg::Node* model)
{
    SIveInfo info;
    info.node = model;
    if (!KivCharacterization::analyseAvatar(model, info))
        throw std::runtime_error("the avatar cannot be analysed");
    return info;
}

}  // namespace

SIveInfo meshAvatar(unsigned triangles)
{
    Joints joints;
    const osg::ref_ptr<osg::Group> model = restJoints(joints);
    for (const auto& [name, joint] : joints)
        addPiece(*joint, pieceName(name), triangles);
    addPiece(*joints.at("Hips"), pieceName("Hips&Spine"), triangles);
    return analysed(model);
}

SIveInfo meshAvatar(unsigned triangles, std::size_t pieces)
{
    Joints joints;
    const osg::ref_ptr<osg::Group> model = restJoints(joints);
    auto joint = joints.begin();
    for (std::size_t piece = 0; piece < pieces; ++piece) {
        addPiece(*joint->second, pieceName(joint->first + "#" + std::to_string(piece)), triangles);
        if (++joint == joints.end())
            joint = joints.begin();
    }
    return analysed(model);
}

SIveInfo shippedAvatar()
{
    osg::ref_ptr<osg::Node> model;
    if (!KivCharacterization::readAvatar(KIV_RUNTIME_ROOT "/Data/IVE/avatar.ive", model))
        throw std::runtime_error("the shipped avatar cannot be read");
    return analysed(model);
}

std::vector<osg::ref_ptr<osg::Node>> copyPieces(const SIveInfo& avatar)
{
    std::vector<osg::ref_ptr<osg::Node>> copies;
    copies.reserve(2 * avatar.jointMap.size());
    for (const auto& [joint, entry] : avatar.jointMap) {
        if (KivCharacterization::IsPropsJoint(joint))
            continue;
        for (const osg::MatrixTransform* piece : entry.pieces)
            copies.push_back(static_cast<osg::Node*>(piece->clone(osg::CopyOp::DEEP_COPY_ALL)));
    }
    return copies;
}

}  // namespace KivBenchmark
