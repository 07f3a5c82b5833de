#include "apps/kivplayer/session/framepublisher.h"

#include <osg/Math>

#include <algorithm>
#include <cmath>

#include "KivMemoryShare/actorframemanager.h"
#include "KivMemoryShare/scenecfgshare.h"

namespace KivPlayer {

namespace {

constexpr double kMinStep = 1.0 / 120.0;
constexpr double kMaxStep = 1.0 / 15.0;
constexpr double kCatchUp = 0.5;  ///< seconds of motion before a jump's goal that decide about contacts there
constexpr double kNeverFollowed = -1e9;

KivAnimation::BasicAnimationManager& playback()
{
    return *KivMemoryShare::SceneCfgShare::instance()->getBaseAnimationManager();
}

/// The frame store is Y-up.
osg::Vec3d toStore(const osg::Vec3d& scene)
{
    return {scene.x(), scene.z(), -scene.y()};
}

std::vector<osg::Vec3d> toStore(std::vector<osg::Vec3d> positions)
{
    for (osg::Vec3d& position : positions)
        position = toStore(position);
    return positions;
}

KivAnimation::Animation* animationOf(const std::string& actorId)
{
    for (KivAnimation::Animation* animation : playback().animations())
        if (animation->getId() == actorId)
            return animation;
    return nullptr;
}

}  // namespace

void FramePublisher::publishContacts(bool wanted)
{
    if (wanted == m_publishContacts)
        return;
    m_publishContacts = wanted;
    for (Body& body : m_bodies) {
        body.followed = kNeverFollowed;
        if (!wanted)
            KivMemoryShare::ActorFrameManager::Ins()->WriteActorStickContact(body.actor->index, nullptr, 0);
    }
}

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
    const std::vector<std::string> names = actor.dressed.jointNames();
    KivAnimation::Animation* animation = animationOf(actor.id());
    const double frameTime = actor.document.frameTime;
    Body body{&actor,
              &actor.dressed.root(),
              CentreOfMass(names),
              ContactTracker(names),
              sampleMotion(actor.dressed, animation, {0.0, actor.duration()}, actor.profile.thrownFrames),
              animation,
              frameTime > 0.0 ? std::clamp(frameTime, kMinStep, kMaxStep) : kMaxStep,
              kNeverFollowed};
    const SampledMotion& sampled = body.sampled;
    for (std::size_t moment = 0; moment < sampled.moments(); ++moment) {
        const auto first = sampled.positions.begin() + static_cast<std::ptrdiff_t>(moment * sampled.joints);
        body.contacts.learn(toStore({first, first + static_cast<std::ptrdiff_t>(sampled.joints)}));
    }
    // What counts as low does not depend on the part that is shown.
    if (shown)
        body.sampled = sampleMotion(actor.dressed, animation,
                                    {shown->first - actor.offset, shown->second - actor.offset},
                                    actor.profile.thrownFrames);
    return body;
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

void FramePublisher::show(double seconds)
{
    if (m_publishContacts)
        for (Body& body : m_bodies)
            follow(body, seconds - body.actor->offset);
    pose(seconds);
    publish();
}

const std::vector<osg::Vec3d>& FramePublisher::storePositions(const Body& body)
{
    body.actor->dressed.readPositions(m_positions);
    for (osg::Vec3d& position : m_positions)
        position = toStore(position);
    return m_positions;
}

void FramePublisher::follow(Body& body, double seconds)
{
    // Contacts are judged on a fixed grid of the actor's own times, whatever times are shown and whenever the
    // actor starts.
    const double goal = std::floor(std::max(0.0, seconds) / body.step + 1e-6);
    if (goal < body.followed || (goal - body.followed) * body.step > 2.0 * kCatchUp) {
        body.followed = std::max(-1.0, goal - std::ceil(kCatchUp / body.step) - 1.0);
        body.contacts.restart();
    }
    while (body.followed < goal) {
        body.followed += 1.0;
        if (body.animation)
            body.animation->pose(body.followed * body.step);
        body.contacts.advance(storePositions(body), body.step);
    }
}

void FramePublisher::publish()
{
    auto* store = KivMemoryShare::ActorFrameManager::Ins();
    for (Body& body : m_bodies) {
        const std::vector<osg::Vec3d>& positions = storePositions(body);
        if (const auto centre = body.centre.of(positions)) {
            const float values[3] = {static_cast<float>(centre->x()), static_cast<float>(centre->y()),
                                     static_cast<float>(centre->z())};
            store->WriteActorGravity(body.actor->index, values, 3);
        }
        if (m_publishContacts) {
            body.contacts.place(positions);
            store->WriteActorStickContact(body.actor->index, body.contacts.contacts().data(),
                                          body.contacts.contacts().size());
        }
    }
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
