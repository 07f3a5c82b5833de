#include "tools/makeavatar/pieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "tools/makeavatar/avatarcheck.h"

namespace {

using namespace KivAvatarMaker;

const std::vector<Piece>& pieces()
{
    static const std::vector<Piece> made = avatarPieces();
    return made;
}

const Piece* find(const std::string& name)
{
    for (const Piece& piece : pieces())
        if (piece.name() == name)
            return &piece;
    return nullptr;
}

double extreme(const Piece& piece, int axis, bool greatest)
{
    double value = piece.mesh.vertices.front().position[axis];
    for (const Vertex& vertex : piece.mesh.vertices)
        value = greatest ? std::max(value, vertex.position[axis]) : std::min(value, vertex.position[axis]);
    return value;
}

// For every vertex the sum of the directions that the triangles around it face.
std::vector<osg::Vec3d> facing(const Mesh& mesh)
{
    std::vector<osg::Vec3d> sums(mesh.vertices.size());
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3) {
        const osg::Vec3d& a = mesh.vertices[mesh.indices[i]].position;
        osg::Vec3d face = (mesh.vertices[mesh.indices[i + 1]].position - a) ^
                          (mesh.vertices[mesh.indices[i + 2]].position - a);
        face.normalize();
        for (std::size_t corner = 0; corner < 3; ++corner)
            sums[mesh.indices[i + corner]] += face;
    }
    return sums;
}

TEST(RestFigure, hasFiftyNineJointsEachAfterItsParent)
{
    EXPECT_EQ(KivFigure::restJoints().size(), 59u);
    std::set<std::string> seen = {""};
    for (const KivFigure::RestJoint& joint : KivFigure::restJoints()) {
        EXPECT_TRUE(seen.count(joint.parent)) << joint.name;
        EXPECT_TRUE(seen.insert(joint.name).second) << joint.name;
    }
}

TEST(RestFigure, hasAnEndWhereverAChainStops)
{
    std::set<std::string> parents, ends;
    for (const KivFigure::RestJoint& joint : KivFigure::restJoints())
        parents.insert(joint.parent);
    for (const KivFigure::RestEnd& end : KivFigure::restEnds())
        EXPECT_TRUE(ends.insert(end.parent).second) << end.parent;
    for (const KivFigure::RestJoint& joint : KivFigure::restJoints())
        EXPECT_EQ(ends.count(joint.name), parents.count(joint.name) ? 0u : 1u) << joint.name;
}

TEST(RestFigure, refusesToPlaceAnUnknownJoint)
{
    EXPECT_THROW(KivFigure::restPosition("Tail"), std::invalid_argument);
}

TEST(AvatarPieces, areSound)
{
    EXPECT_EQ(faultOf(pieces()), "");
}

TEST(AvatarPieces, haveBetween250And700Triangles)
{
    for (const Piece& piece : pieces()) {
        EXPECT_GE(piece.mesh.triangleCount(), 250u) << piece.name();
        EXPECT_LE(piece.mesh.triangleCount(), 700u) << piece.name();
    }
}

TEST(AvatarPieces, haveNormalsThatPointOutOfTheirSkin)
{
    for (const Piece& piece : pieces()) {
        const std::vector<osg::Vec3d> outwards = facing(piece.mesh);
        for (std::size_t i = 0; i < outwards.size(); ++i)
            ASSERT_GT(piece.mesh.vertices[i].normal * outwards[i], 0) << piece.name() << ", vertex " << i;
    }
}

TEST(AvatarPieces, haveTheirMiddleOnTheirSegment)
{
    for (const Piece& piece : pieces()) {
        if (!piece.isSegmentPiece())
            continue;
        osg::Vec3d along = pieceOrigin(piece) - restPoint(piece.joint);
        const double half = along.normalize();
        double low = 1e9, high = -1e9;
        for (const Vertex& vertex : piece.mesh.vertices) {
            const double at = (vertex.position - pieceOrigin(piece)) * along;
            low = std::min(low, at);
            high = std::max(high, at);
        }
        EXPECT_LT(std::abs(low + high) / 2, half) << piece.name();
    }
}

TEST(AvatarPieces, lookTheSameOnBothSides)
{
    for (const Piece& piece : pieces()) {
        const std::size_t at = piece.body.find("Left");
        if (at != 0)
            continue;
        std::string name = piece.name();
        for (std::size_t from = name.find("Left"); from != std::string::npos; from = name.find("Left"))
            name.replace(from, 4, "Right");
        const Piece* right = find(name);
        ASSERT_NE(right, nullptr) << name;
        EXPECT_EQ(right->mesh.triangleCount(), piece.mesh.triangleCount());
        EXPECT_NEAR(extreme(*right, 0, false), -extreme(piece, 0, true), 1e-9) << name;
    }
}

TEST(AvatarPieces, standOnTheGroundAndReachAnAdultsHeight)
{
    const Piece* foot = find("Joint:LeftFoot$");
    const Piece* head = find("Joint:Head$");
    ASSERT_NE(foot, nullptr);
    ASSERT_NE(head, nullptr);
    EXPECT_NEAR(extreme(*foot, 1, false), 0.0, 0.1);
    EXPECT_NEAR(extreme(*head, 1, true), 175.0, 1.5);
    EXPECT_GT(extreme(*foot, 2, true), 15.0);
}

TEST(AvatarPieces, coverTheBodyAndEveryPropsJointOnce)
{
    std::map<std::string, int> count;
    for (const Piece& piece : pieces())
        ++count[piece.joint];
    EXPECT_EQ(count["LeftProps"], 1);
    EXPECT_EQ(count["RightProps"], 1);
    for (const char* joint :
         {"Hips",          "Spine",    "Spine1",       "Spine2",    "Spine3",     "Neck",     "Head",
          "LeftShoulder",  "LeftArm",  "LeftForeArm",  "LeftHand",  "LeftUpLeg",  "LeftLeg",  "LeftFoot",
          "RightShoulder", "RightArm", "RightForeArm", "RightHand", "RightUpLeg", "RightLeg", "RightFoot"})
        EXPECT_GE(count[joint], 1) << joint;
}

// Torso pieces do not stretch with the spine: each must reach well past its neighbour's joint.
TEST(AvatarPieces, overlapAlongTheSpine)
{
    const char* const upwards[] = {"Joint:Hips&Spine$", "Joint:Spine&Spine1#Inner$", "Joint:Spine1$",
                                   "Joint:Spine2$",     "Joint:Spine3&Neck$",        "Joint:Neck&Head#Inner$",
                                   "Joint:Head$"};
    for (std::size_t i = 0; i + 1 < std::size(upwards); ++i) {
        const Piece* below = find(upwards[i]);
        const Piece* above = find(upwards[i + 1]);
        ASSERT_TRUE(below && above) << upwards[i];
        EXPECT_GT(extreme(*below, 1, true) - extreme(*above, 1, false), 3.0) << upwards[i];
    }
}

}  // namespace
