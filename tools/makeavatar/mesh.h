// A closed triangle mesh under construction, independent of how it is stored.
#pragma once

#include <osg/Vec3d>
#include <osg/Vec4f>
#include <vector>

namespace KivAvatarMaker {

struct Vertex
{
    osg::Vec3d position;  ///< centimetres
    osg::Vec3d normal;    ///< unit, outward
    osg::Vec4f colour;
};

/// Triangles wind counter-clockwise seen from outside. May hold several closed components.
struct Mesh
{
    std::vector<Vertex> vertices;
    std::vector<unsigned> indices;

    std::size_t triangleCount() const { return indices.size() / 3; }
};

/// The components of all given meshes as one.
Mesh joined(const std::vector<Mesh>& meshes);

/// The mirror image at the plane x = 0, winding put right: a left piece made into the right one.
Mesh mirrored(Mesh mesh);

Mesh moved(Mesh mesh, const osg::Vec3d& by);

}  // namespace KivAvatarMaker
