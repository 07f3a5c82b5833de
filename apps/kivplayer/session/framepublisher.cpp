#include "apps/kivplayer/session/framepublisher.h"

#include <osg/Math>

#include <algorithm>
#include <cmath>

#include "KivMemoryShare/scenecfgshare.h"

namespace KivPlayer {

namespace {

KivAnimation::BasicAnimationManager& playback()
{
    return *KivMemoryShare::SceneCfgShare::instance()->getBaseAnimationManager();
}

KivAnimation::Animation* animationOf(const std::string& actorId)
{
    for (KivAnimation::Animation* animation : playback().animations())
        if (animation->getId() == actorId)
            return animation;
    return nullptr;
}

}  // namespace

void FramePublisher::setActors(const std::map<unsigned, LoadedActor>& actors,
                               const std::optional<std::pair<double, double>>& shown)
{
    std::vector<Body> before = std::move(m_bodies);
    m_bodies.clear();
    m_bodies.reserve(actors.size());  // Growing would copy what was sampled of every motion.
    m_duration = 0.0;
    for (const auto& [index, actor] : actors) {
        const auto known = std::find_if(before.begin(), before.end(), [&actor = actor](const Body& body) {
            return body.root == &actor.dressed.root();
        });
        m_bodies.push_back(known != before.end() && !shown ? std::move(*known) : makeBody(actor, shown));
        m_bodies.back().actor = &actor;
        m_duration = std::max(m_duration, actor.end());
    }
    playback().pause();
    findFront();
}

FramePublisher::Body FramePublisher::makeBody(const LoadedActor& actor,
                                              const std::optional<std::pair<double, double>>& shown) const
{
    std::pair<double, double> span{0.0, actor.duration()};
    if (shown)
        span = {shown->first - actor.offset, shown->second - actor.offset};
    return {&actor, &actor.dressed.root(),
            sampleMotion(actor.dressed, animationOf(actor.id()), span, actor.profile.thrownFrames)};
}

void FramePublisher::findFront()
{
    osg::Vec3d front;
    std::size_t moments = 0;
    for (const Body& body : m_bodies) {
        front += body.sampled.front;
        moments = std::max(moments, body.sampled.moments());
    }
    const bool told = front.length() > 0.2 * static_cast<double>(moments);
    m_facing = told ? std::atan2(front.y(), front.x()) : -osg::PI_2;
}

void FramePublisher::pose(double seconds)
{
    playback().setTime(seconds);
    playback().update(0.0);
}

std::vector<osg::Vec3d> FramePublisher::positionsNow() const
{
    std::vector<osg::Vec3d> all;
    for (const Body& body : m_bodies) {
        const std::vector<osg::Vec3d> positions = body.actor->dressed.positions();
        all.insert(all.end(), positions.begin(), positions.end());
    }
    return all;
}

std::vector<osg::Vec3d> FramePublisher::sampledPositions() const
{
    std::vector<osg::Vec3d> all;
    for (const Body& body : m_bodies)
        all.insert(all.end(), body.sampled.positions.begin(), body.sampled.positions.end());
    return all;
}

osg::BoundingBox FramePublisher::sampledBox() const
{
    osg::BoundingBox box;
    for (const Body& body : m_bodies)
        box.expandBy(body.sampled.box);
    return box;
}

std::vector<osg::Vec3d> FramePublisher::sampledHeads() const
{
    std::size_t moments = 0;
    for (const Body& body : m_bodies)
        moments = std::max(moments, body.sampled.moments());
    std::vector<osg::Vec3d> all;
    for (std::size_t moment = 0; moment < moments; ++moment)
        for (const Body& body : m_bodies)
            all.push_back(body.sampled.heads[std::min(moment, body.sampled.moments() - 1)]);
    return all;
}

std::vector<osg::Vec3d> FramePublisher::sampledPositionsOver(std::size_t actor) const
{
    return m_bodies[actor].sampled.positionsOverGround();
}

std::vector<osg::Vec3d> FramePublisher::sampledHeadsOver(std::size_t actor) const
{
    return m_bodies[actor].sampled.headsOverGround();
}

osg::Vec3d FramePublisher::groundUnder(std::size_t actor, double seconds)
{
    constexpr int kHalf = 6;
    constexpr double kReach = 0.6;
    osg::Vec3d sum;
    for (int i = -kHalf; i <= kHalf; ++i) {
        pose(seconds + kReach * i / kHalf);
        sum += groundBelow(m_bodies[actor].actor->dressed.positions().front());
    }
    pose(seconds);
    return sum / (2 * kHalf + 1);
}

std::vector<osg::Vec3d> FramePublisher::headsNow() const
{
    std::vector<osg::Vec3d> heads;
    for (const Body& body : m_bodies)
        heads.push_back(headOf(body.actor->dressed.joints(), body.actor->dressed.positions()));
    return heads;
}

}  // namespace KivPlayer
