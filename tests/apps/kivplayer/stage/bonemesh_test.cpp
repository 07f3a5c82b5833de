#include "apps/kivplayer/stage/bonemesh.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using KivPlayer::BoneMesh;

TEST(BoneMesh, drawsNothingForABoneWithoutLength)
{
    BoneMesh mesh;
    mesh.addBone({1, 2, 3}, {1, 2, 3}, 2.0, {});
    mesh.addBone({1, 2, 3}, {std::nan(""), 2, 3}, 2.0, {});
    mesh.finish();
    EXPECT_EQ(mesh.geometry()->getVertexArray()->getNumElements(), 0u);
}

TEST(BoneMesh, turnsEveryTriangleOutwards)
{
    BoneMesh mesh;
    mesh.addBone({0, 0, 0}, {0, 0, 10}, 2.0, {});
    mesh.addDot({0, 0, 0}, 1.0, {});
    mesh.finish();
    const auto& places = static_cast<const osg::Vec3Array&>(*mesh.geometry()->getVertexArray());
    const auto& corners = *mesh.geometry()->getPrimitiveSet(0);
    ASSERT_EQ(corners.getNumIndices(), 3u * (8 + 32));
    for (unsigned i = 0; i < corners.getNumIndices(); i += 3) {
        const osg::Vec3 a = places[corners.index(i)];
        const osg::Vec3 b = places[corners.index(i + 1)];
        const osg::Vec3 c = places[corners.index(i + 2)];
        const osg::Vec3 inside(0.0f, 0.0f, i < 24 ? 5.0f : 0.0f);
        EXPECT_GT(((b - a) ^ (c - a)) * ((a + b + c) / 3.0f - inside), 0.0f) << "triangle " << i / 3;
    }
}

}  // namespace
