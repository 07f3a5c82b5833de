#include "apps/kivplayer/window/uploadqueue.h"

#include <gtest/gtest.h>
#include <osg/Geometry>
#include <osg/Shape>
#include <osg/ShapeDrawable>
#include <osgText/Text3D>

#include <optional>
#include <vector>

#include "apps/kivplayer/output/offscreen.h"

namespace {

using KivPlayer::Offscreen;
using KivPlayer::UploadQueue;

/// Notes what is drawn, and whether it has been uploaded by then.
class DrawWatch : public osg::Drawable::DrawCallback
{
public:
    void drawImplementation(osg::RenderInfo& info, const osg::Drawable* drawable) const override
    {
        ++draws;
        const osg::BufferObject* buffer = drawable->asGeometry()->getVertexArray()->getBufferObject();
        unprepared += buffer && buffer->getGLBufferObject(info.getContextID()) ? 0 : 1;
        drawable->drawImplementation(info);
    }

    mutable int draws = 0;
    mutable int unprepared = 0;
};

/// A stage without anything but figures, each of so many balls.
class ArrivingFigures : public testing::Test
{
protected:
    static constexpr int kBalls = 4;

    void begin(double budget)
    {
        m_uploads.emplace(m_figures, budget);
        m_uploads->uploadWith(*m_offscreen.view().getCamera());
        m_offscreen.view().setSceneData(m_uploads->root());
        m_offscreen.view().getCamera()->setViewMatrixAsLookAt(osg::Vec3d(0, -500, 0), osg::Vec3d(),
                                                              osg::Vec3d(0, 0, 1));
        // A viewer uploads all that it finds in its first frame.
        frame();
    }

    static osg::ref_ptr<osg::Group> figure(DrawWatch* watch)
    {
        osg::ref_ptr<osg::Group> figure = new osg::Group;
        for (int i = 0; i < kBalls; ++i) {
            osg::ref_ptr<osg::ShapeDrawable> ball =
                new osg::ShapeDrawable(new osg::Sphere(osg::Vec3d(0.0, 0.0, 20.0 * i - 30.0), 10.0f));
            ball->setUseDisplayList(false);
            ball->setUseVertexBufferObjects(true);
            ball->setDrawCallback(watch);
            figure->addChild(ball);
        }
        return figure;
    }

    void frame()
    {
        m_uploads->receive();
        m_offscreen.frame(0.0);
    }

    osg::ref_ptr<osg::Group> m_figures = new osg::Group;
    Offscreen m_offscreen{64, 64, 1};
    std::optional<UploadQueue> m_uploads;
    osg::ref_ptr<DrawWatch> m_first = new DrawWatch;
    osg::ref_ptr<DrawWatch> m_second = new DrawWatch;
};

TEST_F(ArrivingFigures, areDrawnOnceEverythingIsUploaded)
{
    begin(0.0);
    m_figures->addChild(figure(m_first));
    for (int i = 0; i < kBalls; ++i) {
        frame();
        EXPECT_EQ(m_first->draws, 0);
        EXPECT_EQ(m_uploads->uploaded(), 1U);
    }
    frame();
    EXPECT_EQ(m_first->draws, kBalls);
    EXPECT_EQ(m_first->unprepared, 0);
    EXPECT_EQ(m_uploads->uploaded(), 0U);
}

TEST_F(ArrivingFigures, takeASingleFrameWhereTheBudgetAllowsIt)
{
    begin(1e9);
    m_figures->addChild(figure(m_first));
    frame();
    EXPECT_EQ(m_uploads->uploaded(), static_cast<std::size_t>(kBalls));
    frame();
    EXPECT_EQ(m_first->draws, kBalls);
    EXPECT_EQ(m_first->unprepared, 0);
}

TEST_F(ArrivingFigures, areShownInTheOrderOfTheirComing)
{
    begin(0.0);
    m_figures->addChild(figure(m_first));
    m_figures->addChild(figure(m_second));
    for (int i = 0; i <= kBalls; ++i)
        frame();
    EXPECT_EQ(m_first->draws, kBalls);
    EXPECT_EQ(m_second->draws, 0);
    for (int i = 0; i < kBalls; ++i)
        frame();
    EXPECT_EQ(m_second->draws, kBalls);
    EXPECT_EQ(m_uploads->waiting(), 0U);
}

TEST_F(ArrivingFigures, bringWhatTheyShareOnce)
{
    begin(1e9);
    const osg::ref_ptr<osg::Group> one = figure(m_first);
    const osg::ref_ptr<osg::Group> other = figure(m_second);
    other->addChild(one->getChild(0));
    m_figures->addChild(one);
    m_figures->addChild(other);
    frame();
    EXPECT_EQ(m_uploads->uploaded(), static_cast<std::size_t>(2 * kBalls));
    frame();
    EXPECT_EQ(m_first->draws, kBalls + 1);
    EXPECT_EQ(m_first->unprepared, 0);
}

TEST_F(ArrivingFigures, areNotKeptWaitingForTheirNames)
{
    begin(1e9);
    const osg::ref_ptr<osg::Group> named = figure(m_first);
    named->addChild(new osgText::Text3D);
    m_figures->addChild(named);
    frame();
    EXPECT_EQ(m_uploads->uploaded(), static_cast<std::size_t>(kBalls));
}

TEST_F(ArrivingFigures, areAllShownInAFrameThatMustBeComplete)
{
    begin(0.0);
    m_figures->addChild(figure(m_first));
    m_uploads->receiveAtOnce();
    m_offscreen.frame(0.0);
    EXPECT_EQ(m_first->draws, kBalls);
    EXPECT_EQ(m_first->unprepared, kBalls) << "this watch sees what drawing must upload";
}

TEST_F(ArrivingFigures, leaveThosePlacesFilledThatTheyTake)
{
    begin(0.0);
    const osg::ref_ptr<osg::Group> before = figure(m_first);
    m_figures->addChild(before);
    for (int i = 0; i <= kBalls; ++i)
        frame();
    m_figures->replaceChild(before, figure(m_second));
    for (int i = 0; i < kBalls; ++i) {
        m_first->draws = 0;
        frame();
        EXPECT_EQ(m_first->draws, kBalls);
        EXPECT_EQ(m_second->draws, 0);
    }
    m_first->draws = 0;
    frame();
    EXPECT_EQ(m_first->draws, 0);
    EXPECT_EQ(m_second->draws, kBalls);
}

TEST_F(ArrivingFigures, thatLeaveAreGoneAtOnce)
{
    begin(0.0);
    const osg::ref_ptr<osg::Group> first = figure(m_first);
    m_figures->addChild(first);
    frame();
    m_figures->removeChild(first);
    EXPECT_NO_THROW(frame()) << "while they were still waiting";
    EXPECT_EQ(m_uploads->waiting(), 0U);

    m_figures->addChild(figure(m_second));
    for (int i = 0; i <= kBalls; ++i)
        frame();
    m_figures->removeChildren(0, 1);
    m_second->draws = 0;
    frame();
    EXPECT_EQ(m_second->draws, 0);
}

TEST_F(ArrivingFigures, areLeftAsTheyWereWhenNobodyWatchesAnyMore)
{
    begin(0.0);
    const osg::ref_ptr<osg::Group> first = figure(m_first);
    m_figures->addChild(first);
    frame();
    EXPECT_NE(first->getCullCallback(), nullptr);
    m_offscreen.view().setSceneData(nullptr);
    m_offscreen.view().getCamera()->setInitialDrawCallback(nullptr);
    m_uploads.reset();
    EXPECT_EQ(first->getCullCallback(), nullptr);
}

}  // namespace
