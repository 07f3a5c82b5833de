#include "framepublisher.h"

#include <osg/Math>

#include <algorithm>
#include <cmath>

#include "KivMemoryShare/actorframemanager.h"
#include "KivMemoryShare/scenecfgshare.h"

namespace KivPlayer {

namespace {

constexpr int kSamples = 96;
constexpr double kShortestStep = 1.0 / 120.0;
constexpr double kLongestStep = 1.0 / 15.0;
constexpr double kCatchUp = 0.5;  ///< seconds of motion before a jump's goal that decide about contacts there

KivAnimation::BasicAnimationManager& playback()
{
    return *KivMemoryShare::SceneCfgShare::instance()->getBaseAnimationManager();
}

/// The frame store is Y-up.
osg::Vec3d toStore(const osg::Vec3d& scene)
{
    return {scene.x(), scene.z(), -scene.y()};
}

/// Where a figure faces, from its hips or, failing these, its shoulders; not normalised.
osg::Vec3d frontOf(const std::vector<DressedActor::Joint>& joints, const std::vector<osg::Vec3d>& places)
{
    for (const char* pair : {"UpLeg", "Arm"}) {
        const osg::Vec3d* left = nullptr;
        const osg::Vec3d* right = nullptr;
        for (std::size_t i = 0; i < joints.size(); ++i) {
            left = joints[i].name == std::string("Left") + pair ? &places[i] : left;
            right = joints[i].name == std::string("Right") + pair ? &places[i] : right;
        }
        if (left && right)
            return (*left - *right) ^ osg::Vec3d(0, 0, 1);
    }
    return {};
}

osg::Vec3d below(const osg::Vec3d& place)
{
    return {place.x(), place.y(), 0.0};
}

/// The first joint whose name tells of a head, else the highest joint.
osg::Vec3d headOf(const std::vector<DressedActor::Joint>& joints, const std::vector<osg::Vec3d>& places)
{
    std::size_t head = 0;
    for (std::size_t i = 0; i < joints.size(); ++i) {
        if (joints[i].name.find("Head") != std::string::npos)
            return places[i];
        head = places[i].z() > places[head].z() ? i : head;
    }
    return places.empty() ? osg::Vec3d() : places[head];
}

}  // namespace

void FramePublisher::publishContacts(bool wanted)
{
    if (wanted == m_publishContacts)
        return;
    m_publishContacts = wanted;
    m_followed = -1e9;
    for (const Body& body : m_bodies)
        if (!wanted)
            KivMemoryShare::ActorFrameManager::Ins()->WriteActorStickContact(body.actor->index, nullptr, 0);
}

void FramePublisher::setActors(const std::map<unsigned, LoadedActor>& actors,
                               const std::optional<std::pair<double, double>>& shown)
{
    m_bodies.clear();
    m_duration = 0.0;
    m_step = kLongestStep;
    for (const auto& [index, actor] : actors) {
        const std::vector<std::string> names = actor.dressed.jointNames();
        m_bodies.push_back({&actor, BodyMotion(names), ContactTracker(names)});
        m_duration = std::max(m_duration, actor.duration());
        if (actor.document.frameTime > 0.0)
            m_step = std::min(m_step, actor.document.frameTime);
    }
    m_step = std::max(m_step, kShortestStep);
    m_followed = -1e9;
    playback().pause();
    sampleMotion(0.0, m_duration);
    if (shown) {
        const double last = std::min(shown->second, m_duration);
        sampleMotion(std::min(shown->first, last), last);
    }
}

void FramePublisher::sampleMotion(double from, double to)
{
    m_sampled.clear();
    m_sampledHeads.clear();
    osg::Vec3d front;
    const int samples = to > from ? kSamples : 1;
    // What counts as low does not depend on the part that is shown.
    const bool whole = from <= 0.0 && to >= m_duration;
    for (int i = 0; i < samples; ++i) {
        pose(samples > 1 ? from + (to - from) * i / (samples - 1) : from);
        for (Body& body : m_bodies) {
            const std::vector<osg::Vec3d> places = body.actor->dressed.positions();
            m_sampled.insert(m_sampled.end(), places.begin(), places.end());
            m_sampledHeads.push_back(headOf(body.actor->dressed.joints(), places));
            if (whole)
                body.contacts.learn(storePlaces(body));
            osg::Vec3d facing = frontOf(body.actor->dressed.joints(), places);
            facing.normalize();
            front += facing;
        }
    }
    const bool told = front.length() > 0.2 * samples;
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
        follow(seconds);
    pose(seconds);
    publish();
}

const std::vector<osg::Vec3d>& FramePublisher::storePlaces(const Body& body)
{
    body.actor->dressed.readPositions(m_places);
    for (osg::Vec3d& place : m_places)
        place = toStore(place);
    return m_places;
}

void FramePublisher::follow(double seconds)
{
    // Contacts are judged on a fixed grid of times, whatever times are shown.
    const double goal = std::floor(seconds / m_step + 1e-6);
    if (goal < m_followed || (goal - m_followed) * m_step > 2.0 * kCatchUp) {
        m_followed = std::max(-1.0, goal - std::ceil(kCatchUp / m_step) - 1.0);
        for (Body& body : m_bodies)
            body.contacts.restart();
    }
    while (m_followed < goal) {
        m_followed += 1.0;
        pose(m_followed * m_step);
        for (Body& body : m_bodies)
            body.contacts.advance(storePlaces(body), m_step);
    }
}

void FramePublisher::publish()
{
    auto* store = KivMemoryShare::ActorFrameManager::Ins();
    for (Body& body : m_bodies) {
        const std::vector<osg::Vec3d>& places = storePlaces(body);
        if (const auto centre = body.motion.centreOfMass(places)) {
            const float values[3] = {static_cast<float>(centre->x()), static_cast<float>(centre->y()),
                                     static_cast<float>(centre->z())};
            store->WriteActorGravity(body.actor->index, values, 3);
        }
        if (m_publishContacts) {
            body.contacts.place(places);
            store->WriteActorStickContact(body.actor->index, body.contacts.contacts().data(),
                                          body.contacts.contacts().size());
        }
    }
}

std::vector<osg::Vec3d> FramePublisher::placesNow() const
{
    std::vector<osg::Vec3d> all;
    for (const Body& body : m_bodies) {
        const std::vector<osg::Vec3d> places = body.actor->dressed.positions();
        all.insert(all.end(), places.begin(), places.end());
    }
    return all;
}

std::pair<std::size_t, std::size_t> FramePublisher::sampleLayout(std::size_t actor) const
{
    std::size_t before = 0;
    std::size_t joints = 0;
    for (std::size_t i = 0; i < m_bodies.size(); ++i) {
        before += i < actor ? m_bodies[i].actor->dressed.joints().size() : 0;
        joints += m_bodies[i].actor->dressed.joints().size();
    }
    return {before, joints};
}

std::vector<osg::Vec3d> FramePublisher::sampledPlacesOver(std::size_t actor) const
{
    const auto [before, joints] = sampleLayout(actor);
    const std::size_t own = m_bodies[actor].actor->dressed.joints().size();
    std::vector<osg::Vec3d> relative;
    for (std::size_t sample = 0; sample + joints <= m_sampled.size(); sample += joints) {
        const osg::Vec3d ground = below(m_sampled[sample + before]);
        for (std::size_t i = 0; i < own; ++i)
            relative.push_back(m_sampled[sample + before + i] - ground);
    }
    return relative;
}

std::vector<osg::Vec3d> FramePublisher::sampledHeadsOver(std::size_t actor) const
{
    const auto [before, joints] = sampleLayout(actor);
    std::vector<osg::Vec3d> relative;
    for (std::size_t sample = 0; sample * m_bodies.size() < m_sampledHeads.size(); ++sample)
        relative.push_back(m_sampledHeads[sample * m_bodies.size() + actor] -
                           below(m_sampled[sample * joints + before]));
    return relative;
}

osg::Vec3d FramePublisher::groundUnder(std::size_t actor, double seconds)
{
    constexpr int kHalf = 6;
    constexpr double kReach = 0.6;
    osg::Vec3d sum;
    for (int i = -kHalf; i <= kHalf; ++i) {
        pose(seconds + kReach * i / kHalf);
        sum += below(m_bodies[actor].actor->dressed.positions().front());
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
