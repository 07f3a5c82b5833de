#include "tools/makeavatar/avatarcheck.h"

#include <gtest/gtest.h>

#include <limits>

#include "tools/makeavatar/skin.h"

namespace {

using namespace KivAvatarMaker;

Mesh soundMesh()
{
    return ballMesh(osg::Vec3d(0, 1, 0), 2.0, 5, 8, Tone::kShell);
}

TEST(AvatarCheckMesh, refusesAnEmptyMesh)
{
    EXPECT_NE(faultOf(Mesh()), "");
}

TEST(AvatarCheckMesh, refusesAnIndexOutOfRange)
{
    Mesh mesh = soundMesh();
    mesh.indices[4] = static_cast<unsigned>(mesh.vertices.size());
    EXPECT_EQ(faultOf(mesh), "a triangle names a vertex that is not there");
}

TEST(AvatarCheckMesh, refusesAVertexThatIsNotFinite)
{
    Mesh mesh = soundMesh();
    mesh.vertices[2].position.y() = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(faultOf(mesh), "a vertex is not finite");
}

TEST(AvatarCheckMesh, refusesANormalThatIsNotOfUnitLength)
{
    Mesh mesh = soundMesh();
    mesh.vertices[2].normal *= 0.5;
    EXPECT_EQ(faultOf(mesh), "a normal is not of unit length");
}

TEST(AvatarCheckMesh, refusesAHole)
{
    Mesh mesh = soundMesh();
    mesh.indices.resize(mesh.indices.size() - 3);
    EXPECT_EQ(faultOf(mesh), "its skin is not closed");
}

TEST(AvatarCheckMesh, refusesATriangleThatIsWoundTheWrongWay)
{
    Mesh mesh = soundMesh();
    std::swap(mesh.indices[0], mesh.indices[1]);
    EXPECT_EQ(faultOf(mesh), "its skin is not closed");
}

TEST(AvatarCheckMesh, acceptsABall)
{
    EXPECT_EQ(faultOf(soundMesh()), "");
}

TEST(AvatarCheckPieces, refusesAnUnknownJoint)
{
    EXPECT_EQ(faultOf({{"Tail", "Tail", soundMesh()}}), "piece Joint:Tail$: its joint is unknown");
}

TEST(AvatarCheckPieces, refusesASegmentOfTwoJointsThatAreNoSegment)
{
    EXPECT_EQ(faultOf({{"Hips", "Hips&Head#Inner", soundMesh()}}),
              "piece Joint:Hips&Head#Inner$: its two joints are no segment");
    EXPECT_EQ(faultOf({{"Hips", "Hips#Outer", soundMesh()}}),
              "piece Joint:Hips#Outer$: its two joints are no segment");
}

TEST(AvatarCheckPieces, refusesAPieceUnderAJointThatItIsNotNamedAfter)
{
    EXPECT_EQ(faultOf({{"Neck", "Head", soundMesh()}}), "piece Joint:Head$: it is not named after its joint");
}

TEST(AvatarCheckPieces, refusesANameThatIsUsedTwice)
{
    EXPECT_EQ(faultOf({{"Head", "Head", soundMesh()}, {"Head", "Head", soundMesh()}}),
              "piece Joint:Head$: its name is used twice");
}

TEST(AvatarCheckPieces, refusesABodyJointWithoutAPiece)
{
    EXPECT_EQ(faultOf({{"Head", "Head", soundMesh()}}), "joint Hips has no piece");
}

}  // namespace
