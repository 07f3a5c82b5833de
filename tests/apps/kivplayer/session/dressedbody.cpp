#include "tests/apps/kivplayer/session/dressedbody.h"

#include <osg/Geometry>
#include <osg/NodeVisitor>

#include <algorithm>
#include <cmath>

namespace {

class PointCollector : public osg::NodeVisitor
{
public:
    explicit PointCollector(std::vector<osg::Vec3d>& points)
        : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_points(points)
    {
        setNodeMaskOverride(~0u);
    }

    void apply(osg::MatrixTransform& transform) override
    {
        const osg::Matrixd outer = m_toBone;
        m_toBone = transform.getMatrix() * outer;
        traverse(transform);
        m_toBone = outer;
    }

    void apply(osg::Geometry& geometry) override
    {
        const auto* vertices = dynamic_cast<const osg::Vec3Array*>(geometry.getVertexArray());
        for (unsigned i = 0; vertices && i < vertices->size(); ++i)
            m_points.push_back(osg::Vec3d((*vertices)[i]) * m_toBone);
    }

private:
    std::vector<osg::Vec3d>& m_points;
    osg::Matrixd m_toBone;
};

}  // namespace

DressedBody::DressedBody(const KivPlayer::DressedActor& actor)
{
    for (const KivPlayer::DressedActor::Joint& joint : actor.joints()) {
        Part part;
        part.bone = joint.bone;
        PointCollector collector(part.points);
        for (unsigned i = 0; i < joint.bone->getNumChildren(); ++i)
            if (!dynamic_cast<KivAnimation::Bone*>(joint.bone->getChild(i)))
                joint.bone->getChild(i)->accept(collector);
        m_parts.push_back(std::move(part));
    }
}

std::vector<double> DressedBody::heights() const
{
    std::vector<double> heights;
    for (const Part& part : m_parts)
        for (const osg::Vec3d& point : part.points)
            heights.push_back((point * part.bone->getMatrixInSkeletonSpace()).z());
    return heights;
}

double DressedBody::lowest() const
{
    const std::vector<double> all = heights();
    return all.empty() ? 0.0 : *std::min_element(all.begin(), all.end());
}

double DressedBody::highest() const
{
    const std::vector<double> all = heights();
    return all.empty() ? 0.0 : *std::max_element(all.begin(), all.end());
}

bool DressedBody::isFinite() const
{
    const std::vector<double> all = heights();
    return !all.empty() && std::all_of(all.begin(), all.end(), [](double z) { return std::isfinite(z); });
}
