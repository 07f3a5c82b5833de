#include "apps/kivplayer/stage/stage.h"

#include <gtest/gtest.h>
#include <osg/Material>
#include <osg/MatrixTransform>
#include <osg/NodeCallback>
#include <osg/ShapeDrawable>

#include "apps/kivplayer/content/surfaces.h"
#include "apps/kivplayer/output/offscreen.h"
#include "apps/kivplayer/stage/framing.h"

namespace {

using KivPlayer::Offscreen;
using KivPlayer::Stage;

class CountUpdates : public osg::NodeCallback
{
public:
    void operator()(osg::Node* node, osg::NodeVisitor* visitor) override
    {
        ++count;
        traverse(node, visitor);
    }
    int count = 0;
};

/// A ball of a metre's height over the origin, seen from the front.
class StagePicture : public testing::Test
{
protected:
    static constexpr int kWidth = 240;
    static constexpr int kHeight = 160;

    void SetUp() override
    {
        m_ball = new osg::ShapeDrawable(new osg::Sphere(osg::Vec3(0, 0, 50), 50.0f));
        m_ball->setColor(osg::Vec4(0.9f, 0.2f, 0.1f, 1.0f));
        m_figures = new osg::Group;
    }

    osg::ref_ptr<osg::Image> render(bool withBall, bool grid = true)
    {
        Offscreen offscreen(kWidth, kHeight, 2);
        if (withBall)
            m_figures->addChild(m_ball);
        KivPlayer::describeSurfaces(*m_figures);
        Stage stage(m_figures);
        stage.setFront(-osg::PI_2);
        stage.setUp(osg::BoundingBox(-50, -50, 0, 50, 50, 100));
        stage.showGrid(grid);
        offscreen.view().setSceneData(stage.root());
        offscreen.view().getCamera()->setViewMatrixAsLookAt(osg::Vec3d(0, -500, 150), osg::Vec3d(0, 0, 40),
                                                            osg::Vec3d(0, 0, 1));
        return offscreen.frame(0.0);
    }

    static int brightness(const osg::Image& image, int x, int y)
    {
        const unsigned char* pixel = image.data(static_cast<unsigned>(x), static_cast<unsigned>(y));
        return pixel[0] + pixel[1] + pixel[2];
    }

    osg::ref_ptr<osg::ShapeDrawable> m_ball;
    osg::ref_ptr<osg::Group> m_figures;
};

TEST_F(StagePicture, showsAFigureInItsOwnColour)
{
    const osg::ref_ptr<osg::Image> picture = render(true);
    const unsigned char* centre = picture->data(kWidth / 2, kHeight / 2);
    EXPECT_GT(centre[0], centre[1] + 60);
    EXPECT_GT(centre[0], centre[2] + 60);
}

TEST_F(StagePicture, darkensTheGroundUnderAFigure)
{
    const osg::ref_ptr<osg::Image> empty = render(false, false);
    const osg::ref_ptr<osg::Image> full = render(true, false);
    // Just in front of where the ball stands on the ground.
    constexpr int kRow = 54;
    EXPECT_LT(brightness(*full, kWidth / 2, kRow), brightness(*empty, kWidth / 2, kRow) - 20);
}

TEST_F(StagePicture, fadesTheGroundIntoTheBackdropWithoutASeam)
{
    const osg::ref_ptr<osg::Image> picture = render(false, false);
    for (int x = 0; x < kWidth; ++x)
        for (int y = 1; y < kHeight; ++y)
            ASSERT_LT(std::abs(brightness(*picture, x, y) - brightness(*picture, x, y - 1)), 12)
                << "at " << x << ", " << y;
}

TEST_F(StagePicture, showsTheGridOnlyWhenAsked)
{
    const osg::ref_ptr<osg::Image> with = render(false, true);
    const osg::ref_ptr<osg::Image> without = render(false, false);
    int different = 0;
    for (int x = 0; x < kWidth; ++x)
        different += brightness(*with, x, 10) != brightness(*without, x, 10) ? 1 : 0;
    EXPECT_GT(different, 10);
}

TEST_F(StagePicture, updatesTheFiguresOnceAFrame)
{
    Offscreen offscreen(32, 32, 1);
    osg::ref_ptr<CountUpdates> updates = new CountUpdates;
    osg::ref_ptr<osg::Group> actor = new osg::Group;
    actor->addUpdateCallback(updates);
    m_figures->addChild(actor);
    Stage stage(m_figures);
    offscreen.view().setSceneData(stage.root());
    offscreen.frame(0.0);
    offscreen.frame(1.0);
    EXPECT_EQ(updates->count, 2);
}

}  // namespace
