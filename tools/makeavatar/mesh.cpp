#include "tools/makeavatar/mesh.h"

#include <utility>

namespace KivAvatarMaker {

Mesh joined(const std::vector<Mesh>& meshes)
{
    Mesh result;
    for (const Mesh& mesh : meshes) {
        const auto first = static_cast<unsigned>(result.vertices.size());
        result.vertices.insert(result.vertices.end(), mesh.vertices.begin(), mesh.vertices.end());
        for (const unsigned index : mesh.indices)
            result.indices.push_back(first + index);
    }
    return result;
}

Mesh mirrored(Mesh mesh)
{
    for (Vertex& vertex : mesh.vertices) {
        vertex.position.x() = -vertex.position.x();
        vertex.normal.x() = -vertex.normal.x();
    }
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3)
        std::swap(mesh.indices[i + 1], mesh.indices[i + 2]);
    return mesh;
}

Mesh moved(Mesh mesh, const osg::Vec3d& by)
{
    for (Vertex& vertex : mesh.vertices)
        vertex.position += by;
    return mesh;
}

}  // namespace KivAvatarMaker
