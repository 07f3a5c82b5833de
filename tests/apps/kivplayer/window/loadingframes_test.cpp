// Whole frames with drawing, as the window has them, while actors are loaded.
#include <osg/Geometry>
#include <osg/NodeVisitor>

#include <algorithm>
#include <optional>
#include <vector>

#include "benchmarks/support/drawnloop.h"
#include "benchmarks/support/threadclock.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"

namespace {

using KivBenchmark::DrawnLoop;
using KivBenchmark::FrameParts;
using KivBenchmark::threadSeconds;
using KivMemoryShare::SceneCfgShare;
using KivPlayer::Session;

/// Counts geometries that drawing itself would have to upload.
class UploadWatch : public osg::Drawable::DrawCallback
{
public:
    void drawImplementation(osg::RenderInfo& info, const osg::Drawable* drawable) const override
    {
        ++draws;
        const osg::Array* vertices = drawable->asGeometry()->getVertexArray();
        const osg::BufferObject* buffer = vertices ? vertices->getBufferObject() : nullptr;
        const bool listed = drawable->getUseDisplayList();
        unprepared += buffer && !listed && !buffer->getGLBufferObject(info.getContextID()) ? 1 : 0;
        drawable->drawImplementation(info);
    }

    mutable int draws = 0;
    mutable int unprepared = 0;
};

class WatchGeometries : public osg::NodeVisitor
{
public:
    explicit WatchGeometries(UploadWatch* watch) : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_pWatch(watch)
    {
        setNodeMaskOverride(~0u);
    }
    void apply(osg::Geometry& geometry) override { geometry.setDrawCallback(m_pWatch); }

private:
    UploadWatch* m_pWatch;
};

double medianProcessorTime(std::vector<FrameParts> frames)
{
    const auto middle = frames.begin() + static_cast<std::ptrdiff_t>(frames.size() / 2);
    std::nth_element(frames.begin(), middle, frames.end(),
                     [](const FrameParts& a, const FrameParts& b) { return a.processor < b.processor; });
    return middle->processor;
}

/// One figure plays, and others come.
class LoadingFrames : public PlayerFixture
{
protected:
    static constexpr std::size_t kFarTooMany = 3000;

    void SetUp() override
    {
        PlayerFixture::SetUp();
        m_session.emplace(m_console);
        ASSERT_TRUE(m_session->start(KivTestSupport::kRuntimeRoot));
        ASSERT_TRUE(m_session->load(0, sample("walk"), "Ann"));
        m_loop.emplace(*m_session, 320, 200);
        m_loop->scene().takeActors();
        quietFrames(10);
        ASSERT_EQ(m_loop->scene().uploads().waiting(), 0U);
    }

    void TearDown() override
    {
        m_loop.reset();
        m_session.reset();
        PlayerFixture::TearDown();
    }

    static osg::Group& figures() { return *SceneCfgShare::instance()->getCharacterSceneNode(); }

    std::vector<FrameParts> quietFrames(int count)
    {
        std::vector<FrameParts> frames;
        for (int i = 0; i < count; ++i)
            frames.push_back(m_loop->frame());
        return frames;
    }

    /// The frames in which an actor is read, comes, and is drawn for the first time.
    std::vector<FrameParts> framesOfALoad(unsigned actor)
    {
        const std::size_t before = m_loop->frame().visible;
        m_loop->load(actor, sample("walk"));
        std::vector<FrameParts> frames{m_loop->frame()};
        while ((m_loop->isLoading() || frames.back().visible <= before) && frames.size() < kFarTooMany)
            frames.push_back(m_loop->frame());
        return frames;
    }

    /// The longest frame of a load as a multiple of the frames that follow, which show as much. Processor
    /// time of the thread that draws: what other programs do to the clock does not count. The least of some
    /// loads, since what is wrong is so every time.
    double lateness()
    {
        double least = 1e9;
        for (unsigned actor = 1; actor <= 4; ++actor) {
            double longest = 0.0;
            for (const FrameParts& frame : framesOfALoad(actor))
                longest = std::max(longest, frame.processor);
            least = std::min(least, longest / medianProcessorTime(quietFrames(9)));
            m_session->remove(actor);
            m_loop->scene().takeActors();
            quietFrames(3);
        }
        return least;
    }

    std::optional<Session> m_session;
    std::optional<DrawnLoop> m_loop;
};

TEST_F(LoadingFrames, drawFiguresThatAreUploaded)
{
    const osg::ref_ptr<UploadWatch> watch = new UploadWatch;
    m_loop->whenClosed = [&] {
        WatchGeometries everyOne(watch);
        if (figures().getNumChildren() == 2)
            figures().getChild(1)->accept(everyOne);
    };
    framesOfALoad(1);
    EXPECT_GT(watch->draws, 60);
    EXPECT_EQ(watch->unprepared, 0);
}

TEST_F(LoadingFrames, areNotLate)
{
    EXPECT_LT(lateness(), 1.5);
}

TEST_F(LoadingFrames, areSeenToBeLateWhereTheyAre)
{
    const double frame = medianProcessorTime(quietFrames(9));
    unsigned before = figures().getNumChildren();
    m_loop->whenClosed = [&] {
        const bool came = figures().getNumChildren() > before;
        before = figures().getNumChildren();
        for (const double start = threadSeconds(); came && 1e3 * (threadSeconds() - start) < 5.0 * frame;)
            ;
    };
    EXPECT_GT(lateness(), 1.5);
}

TEST_F(LoadingFrames, showAReplacedFigureUntilTheOtherIsReady)
{
    std::vector<std::size_t> shown;
    const KivPlayer::UploadQueue& uploads = m_loop->scene().uploads();
    m_loop->load(0, sample("wave"));
    for (std::size_t i = 0; (i == 0 || m_loop->isLoading()) && i < kFarTooMany; ++i)
        shown.push_back(m_loop->frame().visible + uploads.leaving());
    EXPECT_GT(shown.size(), 2U);
    EXPECT_EQ(std::count(shown.begin(), shown.end(), 1U), static_cast<std::ptrdiff_t>(shown.size()));
}

}  // namespace
