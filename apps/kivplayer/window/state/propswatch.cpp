#include "apps/kivplayer/window/state/propswatch.h"

#include <osg/Math>
#include <osg/NodeVisitor>

#include <algorithm>
#include <cmath>

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

WatchedProps describe(unsigned actor, KivManipulator::PropsGeode& geode)
{
    WatchedProps props;
    props.actor = actor;
    props.geode = &geode;
    props.fullName = geode.getPropsName();
    props.name = withoutQualifier(props.fullName);
    osg::Quat scaleOrientation;
    geode.getPropsGeometryMat().decompose(props.position, props.rotation, props.scale, scaleOrientation);
    props.contactPoint = geode.getContactPoint();
    props.draggerShown = geode.isPropsDraggerShown();
    props.contactDraggerShown = geode.isContactPointDraggerShown();
    return props;
}

}  // namespace

osg::Matrixd WatchedProps::matrix() const
{
    return osg::Matrixd::scale(scale) * osg::Matrixd::rotate(rotation) * osg::Matrixd::translate(position);
}

osg::Vec3d WatchedProps::angles() const
{
    const osg::Matrixd turn = osg::Matrixd::rotate(rotation);
    const double y = std::asin(std::clamp(0.0 - turn(0, 2), -1.0, 1.0));
    const bool upright = std::abs(turn(0, 2)) > 1.0 - 1e-9;
    const double x = upright ? std::atan2(-turn(2, 1), turn(1, 1)) : std::atan2(turn(1, 2), turn(2, 2));
    const double z = upright ? 0.0 : std::atan2(turn(0, 1), turn(0, 0));
    return {osg::RadiansToDegrees(x), osg::RadiansToDegrees(y), osg::RadiansToDegrees(z)};
}

void WatchedProps::turnTo(const osg::Vec3d& degrees)
{
    rotation = osg::Quat(osg::DegreesToRadians(degrees.x()), osg::Vec3d(1, 0, 0)) *
               osg::Quat(osg::DegreesToRadians(degrees.y()), osg::Vec3d(0, 1, 0)) *
               osg::Quat(osg::DegreesToRadians(degrees.z()), osg::Vec3d(0, 0, 1));
}

void PropsWatch::setActors(const std::map<unsigned, LoadedActor>& actors)
{
    std::vector<WatchedProps> found;
    for (const auto& [index, actor] : actors) {
        PropsFinder finder;
        actor.dressed.root().accept(finder);
        for (KivManipulator::PropsGeode* geode : finder.m_found) {
            const auto known = std::find_if(m_props.begin(), m_props.end(), [geode](const WatchedProps& one) {
                return one.geode.get() == geode;
            });
            found.push_back(known != m_props.end() ? *known : describe(index, *geode));
        }
    }
    m_props = std::move(found);
    m_pConcerned = nullptr;
}

bool PropsWatch::isDragging() const
{
    return std::any_of(m_props.begin(), m_props.end(), [](const WatchedProps& one) { return one.dragged; });
}

bool PropsWatch::IsPropsConcerned(const std::string& propsName)
{
    const auto found = std::find_if(m_props.begin(), m_props.end(),
                                    [&](const WatchedProps& one) { return one.fullName == propsName; });
    m_pConcerned = found != m_props.end() ? &*found : nullptr;
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
