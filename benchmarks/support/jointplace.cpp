#include "benchmarks/support/jointplace.h"

#include <osg/NodeVisitor>
#include <osg/Transform>

#include <optional>
#include <stdexcept>

namespace KivBenchmark {

namespace {

class JointFinder : public osg::NodeVisitor
{
public:
    explicit JointFinder(const std::string& nameEnding)
        : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_nameEnding(nameEnding)
    {}

    void apply(osg::Node& node) override
    {
        const std::string& name = node.getName();
        if (!m_place && name.size() >= m_nameEnding.size() &&
            name.compare(name.size() - m_nameEnding.size(), std::string::npos, m_nameEnding) == 0)
            m_place = osg::computeLocalToWorld(getNodePath()).getTrans();
        traverse(node);
    }

    const std::optional<osg::Vec3d>& place() const { return m_place; }

private:
    std::string m_nameEnding;
    std::optional<osg::Vec3d> m_place;
};

}  // namespace

osg::Vec3d placeOfJoint(osg::Node& root, const std::string& nameEnding)
{
    JointFinder finder(nameEnding);
    root.accept(finder);
    if (!finder.place())
        throw std::runtime_error("there is no joint " + nameEnding);
    return *finder.place();
}

}  // namespace KivBenchmark
