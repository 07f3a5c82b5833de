#include "apps/kivplayer/window/state/propswatch.h"

#include <osg/NodeVisitor>

#include <algorithm>

#include "apps/kivplayer/content/dressedactor.h"

namespace KivPlayer {

namespace {

constexpr float kSceneUnitsPerMetre = 100.0f;

class PropsFinder : public osg::NodeVisitor
{
public:
    PropsFinder() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }

    void apply(osg::MatrixTransform& node) override
    {
        if (auto* props = dynamic_cast<KivManipulator::PropsGeode*>(&node))
            m_found.push_back(props);
        else
            traverse(node);
    }

    std::vector<KivManipulator::PropsGeode*> m_found;
};

PropsWatch::Entry entryOf(unsigned actor, KivManipulator::PropsGeode& geode)
{
    PropsWatch::Entry entry;
    entry.geode = &geode;
    PropState& prop = entry.state;
    prop.actor = actor;
    prop.fullName = geode.getPropsName();
    prop.name = withoutQualifier(prop.fullName);
    osg::Quat scaleOrientation;
    geode.getPropsGeometryMat().decompose(prop.position, prop.rotation, prop.scale, scaleOrientation);
    prop.contactPoint = geode.getContactPoint();
    prop.draggerShown = geode.isPropsDraggerShown();
    prop.contactDraggerShown = geode.isContactPointDraggerShown();
    return entry;
}

}  // namespace

void PropsWatch::setActors(const std::map<unsigned, osg::Node*>& roots)
{
    std::vector<Entry> found;
    for (const auto& [index, root] : roots) {
        PropsFinder finder;
        root->accept(finder);
        for (KivManipulator::PropsGeode* geode : finder.m_found) {
            const auto known = std::find_if(m_props.begin(), m_props.end(),
                                            [geode](const Entry& one) { return one.geode.get() == geode; });
            found.push_back(known != m_props.end() ? *known : entryOf(index, *geode));
        }
    }
    m_props = std::move(found);
    m_pConcerned = nullptr;
}

void PropsWatch::readDraggers()
{
    for (Entry& one : m_props) {
        osg::ref_ptr<KivManipulator::PropsGeode> geode;
        if (!one.geode.lock(geode))
            continue;
        one.state.draggerShown = geode->isPropsDraggerShown();
        one.state.contactDraggerShown = geode->isContactPointDraggerShown();
    }
}

void PropsWatch::finishDrags()
{
    for (const Entry& one : m_props) {
        osg::ref_ptr<KivManipulator::PropsGeode> geode;
        if (one.geode.lock(geode))
            geode->finishDrag();
    }
}

PropState* PropsWatch::find(const std::string& fullName)
{
    const auto found = std::find_if(m_props.begin(), m_props.end(),
                                    [&](const Entry& one) { return one.state.fullName == fullName; });
    return found != m_props.end() ? &found->state : nullptr;
}

bool PropsWatch::isDragging() const
{
    return std::any_of(m_props.begin(), m_props.end(), [](const Entry& one) { return one.state.dragged; });
}

void PropsWatch::copyTo(std::vector<PropState>& states) const
{
    states.resize(m_props.size());
    std::transform(m_props.begin(), m_props.end(), states.begin(),
                   [](const Entry& one) { return one.state; });
}

bool PropsWatch::IsPropsConcerned(const std::string& propsName)
{
    m_pConcerned = find(propsName);
    return m_pConcerned != nullptr;
}

bool PropsWatch::PropsVectorsChanged(const osg::Vec3f& position, const osg::Vec3f& contactPoint)
{
    m_pConcerned->position = position * kSceneUnitsPerMetre;
    m_pConcerned->contactPoint = contactPoint;
    ++m_pConcerned->changes;
    return true;
}

bool PropsWatch::PropsValuesChanged(const osg::Quat& rotation, const osg::Vec3d& scale)
{
    m_pConcerned->rotation = rotation;
    m_pConcerned->scale = scale;
    return true;
}

bool PropsWatch::PropsFlagChanged(bool flag)
{
    m_pConcerned->drags += m_pConcerned->dragged && !flag ? 1 : 0;
    m_pConcerned->dragged = flag;
    return true;
}

}  // namespace KivPlayer
