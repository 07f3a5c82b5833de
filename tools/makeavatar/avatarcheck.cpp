#include "tools/makeavatar/avatarcheck.h"

#include <cmath>
#include <map>
#include <set>
#include <stdexcept>
#include <utility>

#include "KivCharacterization/naming.h"

namespace KivAvatarMaker {

namespace {

constexpr std::size_t kMaxVertices = 65535;

// Closed: every edge is walked once in each direction.
bool isClosed(const Mesh& mesh)
{
    std::map<std::pair<unsigned, unsigned>, int> walks;
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3)
        for (std::size_t corner = 0; corner < 3; ++corner)
            ++walks[{mesh.indices[i + corner], mesh.indices[i + (corner + 1) % 3]}];
    for (const auto& [edge, count] : walks) {
        const auto back = walks.find({edge.second, edge.first});
        if (count != 1 || back == walks.end() || back->second != 1)
            return false;
    }
    return true;
}

bool isFinite(const osg::Vec3d& v)
{
    return std::isfinite(v.x()) && std::isfinite(v.y()) && std::isfinite(v.z());
}

std::string nameFault(const Piece& piece)
{
    if (!KivFigure::findRestJoint(piece.joint))
        return "its joint is unknown";
    try {
        pieceOrigin(piece);
    } catch (const std::invalid_argument& fault) {
        return fault.what();
    }
    const std::string base = piece.body.substr(0, piece.body.find(KivCharacterization::kTagMark));
    if (base.substr(0, base.find(KivCharacterization::kSegmentMark)) != piece.joint)
        return "it is not named after its joint";
    if (piece.isSegmentPiece()) {
        const std::size_t mark = base.find(KivCharacterization::kSegmentMark);
        const auto* child =
            mark == std::string::npos ? nullptr : KivFigure::findRestJoint(base.substr(mark + 1));
        if (!child || child->parent != piece.joint)
            return "its two joints are no segment";
    }
    return {};
}

}  // namespace

std::string faultOf(const Mesh& mesh)
{
    if (mesh.indices.empty() || mesh.indices.size() % 3 != 0 || mesh.vertices.size() > kMaxVertices)
        return "it has no whole number of triangles, or too many vertices";
    for (const unsigned index : mesh.indices)
        if (index >= mesh.vertices.size())
            return "a triangle names a vertex that is not there";
    for (const Vertex& vertex : mesh.vertices) {
        if (!isFinite(vertex.position) || !isFinite(vertex.normal))
            return "a vertex is not finite";
        if (std::abs(vertex.normal.length() - 1.0) > 1e-3)
            return "a normal is not of unit length";
    }
    return isClosed(mesh) ? std::string() : "its skin is not closed";
}

std::string faultOf(const std::vector<Piece>& pieces)
{
    std::set<std::string> names, dressed;
    for (const Piece& piece : pieces) {
        std::string fault = nameFault(piece);
        if (fault.empty())
            fault = faultOf(piece.mesh);
        if (fault.empty() && !names.insert(piece.name()).second)
            fault = "its name is used twice";
        if (!fault.empty())
            return "piece " + piece.name() + ": " + fault;
        dressed.insert(piece.joint);
    }
    for (const KivFigure::RestJoint& joint : KivFigure::restJoints())
        if (joint.name.find("InHand") == std::string::npos && !dressed.count(joint.name))
            return "joint " + joint.name + " has no piece";
    return {};
}

}  // namespace KivAvatarMaker
