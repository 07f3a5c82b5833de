#include "tools/makeavatar/skin.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tools/makeavatar/avatarcheck.h"

namespace {

using namespace KivAvatarMaker;
using osg::Vec3d;

const osg::Vec4f kGrey(0.5f, 0.5f, 0.5f, 1);

double volume(const Mesh& mesh)
{
    double six = 0;
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3)
        six += mesh.vertices[mesh.indices[i]].position *
               (mesh.vertices[mesh.indices[i + 1]].position ^ mesh.vertices[mesh.indices[i + 2]].position);
    return six / 6;
}

TEST(Skin, refusesAnAxisThatLeavesTheBody)
{
    Net net;
    net.from = Vec3d(0, 0, 0);
    net.to = Vec3d(0, 9, 0);
    net.front = Vec3d(0, 0, 1);
    EXPECT_THROW(skinned(ball(Vec3d(0, 0, 0), 2), net, kGrey), std::logic_error);
}

TEST(Skin, liesOnTheBodyWithNormalsOutward)
{
    const Vec3d centre(3, -1, 2);
    for (const Vertex& vertex : ballMesh(centre, 4, 9, 12, kGrey).vertices) {
        EXPECT_NEAR((vertex.position - centre).length(), 4, 1e-6);
        EXPECT_GT(vertex.normal * (vertex.position - centre) / 4, 0.999);
    }
}

TEST(Skin, hasTwoTrianglesForEveryRingAndColumn)
{
    EXPECT_EQ(ballMesh(Vec3d(), 1, 9, 12, kGrey).triangleCount(), 2u * 9 * 12);
}

TEST(Skin, enclosesTheVolumeOfTheBody)
{
    const double exact = 4.0 / 3.0 * osg::PI * 8;
    const double drawn = volume(ballMesh(Vec3d(), 2, 24, 32, kGrey));
    EXPECT_LT(drawn, exact);
    EXPECT_GT(drawn, exact * 0.97);
}

TEST(Skin, drawsMoreColumnsInFrontWhenAsked)
{
    Net net;
    net.from = Vec3d(0, -1, 0);
    net.to = Vec3d(0, 1, 0);
    net.front = Vec3d(0, 0, 1);
    net.columns = 20;
    net.frontColumns = 16;
    int front = 0;
    const Mesh mesh = skinned(ellipsoid(Vec3d(), Vec3d(3, 5, 3)), net, kGrey);
    for (unsigned column = 0; column < net.columns; ++column)
        front += mesh.vertices[1 + column].position.z() > -1e-6;
    EXPECT_EQ(front, 17);
    EXPECT_EQ(faultOf(mesh), "");
}

TEST(Mesh, keepsItsVolumeWhenMirrored)
{
    const Mesh left = ballMesh(Vec3d(5, 0, 0), 2, 9, 12, kGrey);
    const Mesh right = mirrored(left);
    EXPECT_NEAR(volume(right), volume(left), 1e-6);
    EXPECT_GT(volume(right), 0);
    EXPECT_NEAR(right.vertices[0].position.x(), -left.vertices[0].position.x(), 1e-12);
}

TEST(Mesh, joinsClosedComponentsIntoAClosedMesh)
{
    const Mesh both = joined({ballMesh(Vec3d(), 2, 5, 8, kGrey), ballMesh(Vec3d(9, 0, 0), 1, 5, 8, kGrey)});
    EXPECT_EQ(both.triangleCount(), 160u);
    EXPECT_EQ(faultOf(both), "");
}

}  // namespace
