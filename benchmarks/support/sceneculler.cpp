#include "benchmarks/support/sceneculler.h"

#include <osg/State>
#include <osgUtil/Statistics>

namespace KivBenchmark {

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 720;

}  // namespace

SceneCuller::SceneCuller(osg::Node& scene, const osg::BoundingSphere& seen) : m_view(new osgUtil::SceneView)
{
    m_view->setDefaults();
    m_view->setSceneData(&scene);
    m_view->setViewport(0, 0, kWidth, kHeight);
    const osg::Vec3d centre = seen.center();
    m_view->setProjectionMatrixAsPerspective(30.0, static_cast<double>(kWidth) / kHeight, 1.0, 1e6);
    m_view->setViewMatrixAsLookAt(centre - osg::Vec3d(0.0, 4.0 * seen.radius(), 0.0), centre,
                                  osg::Vec3d(0, 0, 1));
}

void SceneCuller::cull()
{
    m_view->cull();
}

unsigned SceneCuller::drawables() const
{
    osgUtil::Statistics statistics;
    return m_view->getStats(statistics) ? static_cast<unsigned>(statistics.numDrawables) : 0;
}

}  // namespace KivBenchmark
