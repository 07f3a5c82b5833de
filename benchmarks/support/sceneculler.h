#pragma once

#include <osg/Node>
#include <osg/ref_ptr>
#include <osgUtil/SceneView>

namespace KivBenchmark {

/// Culls a scene as a frame of a viewer does; nothing is drawn.
class SceneCuller
{
public:
    /// @param seen what the camera takes in.
    SceneCuller(osg::Node& scene, const osg::BoundingSphere& seen);

    void cull();

    /// How many drawables the culled frame would draw. Costs more than culling.
    unsigned drawables() const;

private:
    osg::ref_ptr<osgUtil::SceneView> m_view;
};

}  // namespace KivBenchmark
