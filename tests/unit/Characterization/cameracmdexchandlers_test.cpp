#include "KivCharacterization/Characterization/cameracmdexchandlers.h"

#include <gtest/gtest.h>
#include <osgGA/OrbitManipulator>
#include <osgViewer/CompositeViewer>

#include "tests/support/freshhost.h"

namespace {

using namespace KivCharacterization;
using KivMemoryShare::SceneCfgShare;
using KivRenderState::KivRenderStateManager;

class CameraCommands : public KivTestSupport::FreshHost
{
};

TEST_F(CameraCommands, setTheTracedActorInPrepareAlone)
{
    ActorTable actors;
    CameraTraceCmdExcHandler trace(&actors, "5", true);
    EXPECT_TRUE(trace.execute());
    EXPECT_TRUE(trace.finish());
    EXPECT_FALSE(KivRenderStateManager::instance()->getCameraTraceState());
    EXPECT_TRUE(trace.prepare());
    EXPECT_TRUE(KivRenderStateManager::instance()->getCameraTraceState());
    EXPECT_EQ(KivRenderStateManager::instance()->getCameraTraceIdStr(), "5");
}

TEST_F(CameraCommands, goHomeWithoutAViewerAndStillResetTheTraceMatrix)
{
    KivRenderStateManager::instance()->setCameraTraceMatrix(osg::Matrixd::translate(1, 2, 3));
    CameraHomePositionCmdExcHandler home;
    EXPECT_TRUE(home.execute());
    EXPECT_TRUE(KivRenderStateManager::instance()->getCameraTraceMatrix().isIdentity());
}

/// Counts how often it is sent home, at once.
class CountingManipulator : public osgGA::OrbitManipulator
{
public:
    int homes = 0;
    using osgGA::OrbitManipulator::home;
    void home(double time) override { homes += time == 0.0 ? 1 : 100; }
};

TEST_F(CameraCommands, sendEveryViewHomeAndSkipAViewWithoutManipulator)
{
    osg::ref_ptr<osgViewer::CompositeViewer> viewer = new osgViewer::CompositeViewer;
    std::vector<osg::ref_ptr<CountingManipulator>> manipulators;
    for (int i = 0; i < 3; ++i) {
        osg::ref_ptr<osgViewer::View> view = new osgViewer::View;
        if (i != 1) {
            manipulators.push_back(new CountingManipulator);
            view->setCameraManipulator(manipulators.back().get(), false);
        }
        viewer->addView(view.get());
    }
    SceneCfgShare::instance()->setCompositeViewer(viewer.get());
    CameraHomePositionCmdExcHandler home;
    EXPECT_TRUE(home.execute());
    for (const auto& manipulator : manipulators) {
        EXPECT_EQ(manipulator->homes, 1);
    }
}

}  // namespace
