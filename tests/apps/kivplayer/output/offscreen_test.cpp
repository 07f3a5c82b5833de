#include "apps/kivplayer/output/offscreen.h"

#include <gtest/gtest.h>
#include <osg/Geometry>
#include <osg/ShapeDrawable>

#include <cstring>
#include <set>

namespace {

using KivPlayer::Offscreen;

/// A white half-plane whose edge crosses the picture at a slant.
osg::ref_ptr<osg::Node> slantedEdge()
{
    osg::ref_ptr<osg::Geometry> plane = new osg::Geometry;
    osg::ref_ptr<osg::Vec3Array> corners = new osg::Vec3Array;
    corners->push_back({-900.0f, 0.0f, -210.0f});
    corners->push_back({900.0f, 0.0f, 190.0f});
    corners->push_back({0.0f, 0.0f, -2000.0f});
    plane->setVertexArray(corners);
    plane->addPrimitiveSet(new osg::DrawArrays(GL_TRIANGLES, 0, 3));
    plane->getOrCreateStateSet()->setMode(GL_LIGHTING, osg::StateAttribute::OFF);
    return plane;
}

std::size_t shadesOfAnEdge(int multiple)
{
    Offscreen offscreen(160, 120, multiple);
    offscreen.view().setSceneData(slantedEdge());
    osg::Camera* camera = offscreen.view().getCamera();
    camera->setClearColor(osg::Vec4(0, 0, 0, 1));
    camera->setViewMatrixAsLookAt(osg::Vec3d(0, -1000, 0), osg::Vec3d(), osg::Vec3d(0, 0, 1));
    const osg::ref_ptr<osg::Image> picture = offscreen.frame(0.0);
    std::set<int> shades;
    for (int y = 0; y < picture->t(); ++y)
        for (int x = 0; x < picture->s(); ++x)
            shades.insert(*picture->data(static_cast<unsigned>(x), static_cast<unsigned>(y)));
    return shades.size();
}

TEST(Offscreen, hasHardEdgesWithOneSampleAndSmoothOnesWithThree)
{
    EXPECT_EQ(shadesOfAnEdge(1), 2u);
    EXPECT_GE(shadesOfAnEdge(3), 8u);
}

TEST(Offscreen, givesTheSameBytesTwice)
{
    osg::ref_ptr<osg::Image> first;
    for (int run = 0; run < 2; ++run) {
        Offscreen offscreen(96, 64, 2);
        offscreen.view().setSceneData(new osg::ShapeDrawable(new osg::Sphere(osg::Vec3(), 100.0f)));
        offscreen.view().getCamera()->setViewMatrixAsLookAt(osg::Vec3d(0, -1000, 0), osg::Vec3d(),
                                                            osg::Vec3d(0, 0, 1));
        const osg::ref_ptr<osg::Image> picture = offscreen.frame(0.0);
        if (first) {
            EXPECT_EQ(std::memcmp(first->data(), picture->data(), picture->getTotalSizeInBytes()), 0);
        }
        first = picture;
    }
}

TEST(Offscreen, lowersTheMultipleWhereTheSurfaceWouldBeTooLarge)
{
    Offscreen offscreen(4096, 16, 8);
    const osg::ref_ptr<osg::Image> picture = offscreen.frame(0.0);
    EXPECT_EQ(picture->s(), 4096);
    EXPECT_EQ(picture->t(), 16);
}

}  // namespace
