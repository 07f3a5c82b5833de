#pragma once

#include <osg/FrameStamp>
#include <osg/Group>
#include <osg/NodeCallback>
#include <osg/ref_ptr>
#include <osgUtil/UpdateVisitor>

#include <cstddef>
#include <string>

namespace KivBenchmark {

/// Actors below one group, and the traversal that plays them. Time is counted in rows of the motion.
class Stage
{
public:
    explicit Stage(double frameTime) : m_frameTime(frameTime) { m_visitor->setFrameStamp(m_stamp); }

    osg::Group& scene() { return *m_scene; }

    /// Runs one update traversal.
    void showRow(double row)
    {
        m_stamp->setSimulationTime(row * m_frameTime);
        m_scene->accept(*m_visitor);
    }

private:
    double m_frameTime;
    osg::ref_ptr<osg::Group> m_scene = new osg::Group;
    osg::ref_ptr<osg::FrameStamp> m_stamp = new osg::FrameStamp;
    osg::ref_ptr<osgUtil::UpdateVisitor> m_visitor = new osgUtil::UpdateVisitor;
};

/// Adds so many skeletons of the reference host to the stage, playing.
void addSkeletons(Stage& stage, const std::string& motion, std::size_t actors);

}  // namespace KivBenchmark
