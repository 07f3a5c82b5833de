#include "apps/kivplayer/content/bareskeleton.h"

#include <osg/BoundingBox>
#include <osg/MatrixTransform>
#include <osg/NodeVisitor>

#include <algorithm>
#include <cmath>

#include "KivManipulator/propsgeode.h"

namespace KivPlayer {

namespace {

/// Centimetres: within these a skeleton is left as large as its file has it.
constexpr double kMinSize = 50.0;
constexpr double kMaxSize = 400.0;
constexpr double kPersonSize = 170.0;

class PropFinder : public osg::NodeVisitor
{
public:
    PropFinder() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }

    void apply(osg::MatrixTransform& node) override
    {
        m_found = m_found || dynamic_cast<KivManipulator::PropsGeode*>(&node);
        if (!m_found)
            traverse(node);
    }

    bool m_found = false;
};

/// A prop belongs to the motion and not to the body.
bool holdsAProp(osg::Node& node)
{
    PropFinder finder;
    node.accept(finder);
    return finder.m_found;
}

void takeOffPieces(const DressedActor& actor)
{
    for (const DressedPiece& piece : actor.pieces()) {
        osg::Node* worn = const_cast<osg::MatrixTransform*>(piece.holder.get());
        while (worn && worn->getNumParents() > 0 && !dynamic_cast<KivAnimation::Bone*>(worn->getParent(0)))
            worn = worn->getParent(0);
        if (worn && worn->getNumParents() > 0 && !holdsAProp(*worn))
            worn->getParent(0)->removeChild(worn);
    }
}

osg::BoundingBoxd boxAround(const std::vector<osg::Vec3d>& positions)
{
    osg::BoundingBoxd box;
    for (const osg::Vec3d& position : positions)
        if (!position.isNaN() && std::isfinite(position.length()))
            box.expandBy(position);
    return box;
}

}  // namespace

void makeBare(DressedActor& actor)
{
    takeOffPieces(actor);
    const osg::BoundingBoxd box = boxAround(actor.positions());
    if (!box.valid())
        return;
    const double size = std::max({box.xMax() - box.xMin(), box.yMax() - box.yMin(), box.zMax() - box.zMin()});
    const bool keeps = size <= 0.0 || (size >= kMinSize && size <= kMaxSize);
    const double scale = keeps ? 1.0 : kPersonSize / size;
    osg::MatrixTransform& skeleton = actor.skeleton();
    skeleton.setMatrix(skeleton.getMatrix() * osg::Matrixd::translate(0.0, 0.0, -box.zMin()) *
                       osg::Matrixd::scale(scale, scale, scale));
}

std::vector<osg::ref_ptr<osg::Group>> bareSkeletons(const std::map<unsigned, LoadedActor>& actors)
{
    std::vector<osg::ref_ptr<osg::Group>> bare;
    for (const auto& [index, actor] : actors)
        if (!actor.isPerson)
            bare.emplace_back(&actor.dressed.root());
    return bare;
}

std::string bareNotice(const std::map<unsigned, LoadedActor>& actors)
{
    std::string notice;
    for (const auto& [index, actor] : actors)
        if (!actor.isPerson)
            notice += (notice.empty() ? "" : "\n") + (actors.size() > 1 ? actor.name + ": " : "") +
                      notAPerson(actor.profile);
    return notice;
}

}  // namespace KivPlayer
