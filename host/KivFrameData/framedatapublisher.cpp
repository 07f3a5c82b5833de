#include "KivFrameData/framedatapublisher.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "KivFrameData/centreofmass.h"
#include "KivFrameData/contacttracker.h"
#include "KivMemoryShare/actorframemanager.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "host/KivFrameData/jointpositions.h"

namespace KivFrameData {

namespace {

constexpr double kShortestStep = 1.0 / 120.0;
constexpr double kLongestStep = 1.0 / 15.0;
constexpr double kCatchUp = 0.5;  ///< seconds of motion before a jump's goal that decide about contacts there
constexpr double kNeverFollowed = -1e9;
constexpr int kLearntPoses = 96;

KivAnimation::BasicAnimationManager& playback()
{
    return *KivMemoryShare::SceneCfgShare::instance()->getBaseAnimationManager();
}

KivMemoryShare::ActorFrameManager& store()
{
    return *KivMemoryShare::ActorFrameManager::Ins();
}

std::optional<unsigned> actorNumber(const std::string& id)
{
    unsigned number = 0;
    const char* const end = id.data() + id.size();
    const auto [last, error] = std::from_chars(id.data(), end, number);
    if (error != std::errc() || last != end)
        return std::nullopt;
    return number;
}

}  // namespace

struct FrameDataPublisher::Actors
{
    struct Actor
    {
        Actor(unsigned actorNumber, KivAnimation::Animation& motion, osg::Node& root);

        void follow(double seconds, std::vector<osg::Vec3d>& positions);
        void learnHeights(std::vector<osg::Vec3d>& positions);

        unsigned number;
        osg::ref_ptr<KivAnimation::Animation> animation;
        JointPositions joints;
        CentreOfMass mass;
        ContactTracker contacts;
        double step;                       ///< seconds between the poses that contacts are judged by
        double followed = kNeverFollowed;  ///< the last of these poses, counted from the actor's first frame
        bool learnt = false;
        bool plays = false;
    };

    void takeOver();
    void add(KivAnimation::Animation& animation);
    void publish(Actor& actor);
    void forgetTheGone(const std::map<KivAnimation::Animation*, Actor>& before);

    bool contactsWanted = true;
    std::map<KivAnimation::Animation*, Actor> actors;
    std::optional<unsigned long long> revision;
    std::vector<osg::Vec3d> positions;  ///< of one actor; kept for its memory
};

FrameDataPublisher::Actors::Actor::Actor(unsigned actorNumber, KivAnimation::Animation& motion,
                                         osg::Node& root)
    : number(actorNumber),
      animation(&motion),
      joints(root),
      mass(joints.names()),
      contacts(joints.names()),
      step(motion.frameTime() > 0.0 ? std::clamp(motion.frameTime(), kShortestStep, kLongestStep)
                                    : kLongestStep)
{}

/// What counts as low does not depend on the part of the motion that is shown.
void FrameDataPublisher::Actors::Actor::learnHeights(std::vector<osg::Vec3d>& positions)
{
    const double end = animation->duration();
    const int poses = end > 0.0 ? kLearntPoses : 1;
    for (int i = 0; i < poses; ++i) {
        animation->pose(poses > 1 ? end * i / (poses - 1) : 0.0);
        joints.read(positions);
        contacts.learn(positions);
    }
    learnt = true;
}

void FrameDataPublisher::Actors::Actor::follow(double seconds, std::vector<osg::Vec3d>& positions)
{
    if (!learnt)
        learnHeights(positions);
    // Contacts are judged on a fixed grid of the actor's own times, whatever times are shown and whenever the
    // actor starts.
    const double goal = std::floor(std::max(0.0, seconds) / step + 1e-6);
    if (goal < followed || (goal - followed) * step > 2.0 * kCatchUp) {
        followed = std::max(-1.0, goal - std::ceil(kCatchUp / step) - 1.0);
        contacts.restart();
    }
    while (followed < goal) {
        followed += 1.0;
        animation->pose(followed * step);
        joints.read(positions);
        contacts.advance(positions, step);
    }
    animation->pose(seconds);
}

void FrameDataPublisher::Actors::add(KivAnimation::Animation& animation)
{
    const std::optional<unsigned> number = actorNumber(animation.getId());
    osg::Switch* const root = animation.getAttachNodePtr();
    if (!number || !root)
        return;
    const Actor& added = actors.try_emplace(&animation, *number, animation, *root).first->second;
    if (added.joints.empty())
        actors.erase(&animation);
}

void FrameDataPublisher::Actors::forgetTheGone(const std::map<KivAnimation::Animation*, Actor>& before)
{
    std::set<unsigned> present;
    for (const auto& entry : actors)
        present.insert(entry.second.number);
    for (const auto& entry : before)
        if (present.count(entry.second.number) == 0)
            store().RemoveActor(entry.second.number);
}

void FrameDataPublisher::Actors::takeOver()
{
    if (revision == playback().revision())
        return;
    revision = playback().revision();
    std::map<KivAnimation::Animation*, Actor> before = std::move(actors);
    actors.clear();
    for (KivAnimation::Animation* animation : playback().animations()) {
        if (auto known = before.extract(animation))
            actors.insert(std::move(known));
        else
            add(*animation);
    }
    for (auto& [animation, actor] : actors)
        actor.plays = playback().isPlaying(animation);
    forgetTheGone(before);
}

void FrameDataPublisher::Actors::publish(Actor& actor)
{
    if (contactsWanted && actor.plays)
        actor.follow(playback().time() - actor.animation->startTime(), positions);
    actor.joints.read(positions);
    if (const auto centre = actor.mass.of(positions)) {
        const float values[3] = {static_cast<float>(centre->x()), static_cast<float>(centre->y()),
                                 static_cast<float>(centre->z())};
        store().WriteActorGravity(actor.number, values, 3);
    }
    if (contactsWanted) {
        actor.contacts.place(positions);
        store().WriteActorStickContact(actor.number, actor.contacts.contacts().data(),
                                       actor.contacts.contacts().size());
    }
}

FrameDataPublisher::FrameDataPublisher(bool contacts) : m_spActors(std::make_unique<Actors>())
{
    m_spActors->contactsWanted = contacts;
}

FrameDataPublisher::~FrameDataPublisher() = default;

void FrameDataPublisher::publishContacts(bool wanted)
{
    if (wanted == m_spActors->contactsWanted)
        return;
    m_spActors->contactsWanted = wanted;
    for (auto& entry : m_spActors->actors) {
        entry.second.followed = kNeverFollowed;
        if (!wanted)
            store().WriteActorStickContact(entry.second.number, nullptr, 0);
    }
}

void FrameDataPublisher::publish()
{
    m_spActors->takeOver();
    for (auto& entry : m_spActors->actors)
        m_spActors->publish(entry.second);
}

void FrameDataPublisher::publishAt(double seconds)
{
    playback().setTime(seconds);
    playback().update(0.0);
    publish();
}

}  // namespace KivFrameData
