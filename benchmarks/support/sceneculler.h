#pragma once

#include <osg/Node>
#include <osg/ref_ptr>
#include <osgUtil/SceneView>

namespace KivBenchmark {

/// Culls a scene as a frame of a viewer does, for a camera that sees all of it; nothing is drawn.
class SceneCuller
{
public:
    explicit SceneCuller(osg::Node& scene);

    /// @return how many drawables the frame would draw.
    unsigned cull();

private:
    osg::ref_ptr<osgUtil::SceneView> m_view;
};

}  // namespace KivBenchmark
