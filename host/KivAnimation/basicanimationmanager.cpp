#include "KivAnimation/basicanimationmanager.h"

#include <osg/FrameStamp>
#include <osg/NodeVisitor>

#include <algorithm>
#include <cmath>
#include <optional>

namespace KivAnimation {

struct BasicAnimationManager::Clock
{
    struct Entry
    {
        osg::ref_ptr<Animation> animation;
        bool playing = false;
    };

    std::vector<Entry> entries;
    double time = 0.0;
    double speed = 1.0;
    bool paused = false;
    bool looping = true;
    std::optional<double> lastSimulationTime;
    unsigned long long revision = 0;

    std::vector<Entry>::iterator find(const Animation* animation)
    {
        return std::find_if(entries.begin(), entries.end(),
                            [animation](const Entry& entry) { return entry.animation == animation; });
    }

    double duration() const
    {
        double end = 0.0;
        for (const Entry& entry : entries) {
            end = std::max(end, entry.animation->startTime() + entry.animation->duration());
        }
        return end;
    }

    void advance(double simulationTime)
    {
        const double step = lastSimulationTime ? simulationTime - *lastSimulationTime : 0.0;
        lastSimulationTime = simulationTime;
        const double end = duration();
        if (!paused && step > 0.0) {
            time += step * speed;
            if (looping && end > 0.0 && (time < 0.0 || time > end)) {
                time = std::fmod(time, end);
                time = time < 0.0 ? time + end : time;
            }
        }
        time = std::clamp(time, 0.0, end);
    }

    void pose() const
    {
        for (const Entry& entry : entries) {
            if (entry.playing) {
                entry.animation->pose(time - entry.animation->startTime());
            }
        }
    }
};

BasicAnimationManager::BasicAnimationManager() : m_spClock(std::make_unique<Clock>()) {}

BasicAnimationManager::BasicAnimationManager(const BasicAnimationManager& other, const osg::CopyOp& copyop)
    : osg::Object(other, copyop),
      osg::Callback(other, copyop),
      osg::NodeCallback(other, copyop),
      m_spClock(std::make_unique<Clock>(*other.m_spClock))
{}

BasicAnimationManager::~BasicAnimationManager() = default;

void BasicAnimationManager::registerAnimation(Animation* animation)
{
    if (animation && !isRegistered(animation)) {
        m_spClock->entries.push_back({animation, false});
        ++m_spClock->revision;
    }
}

void BasicAnimationManager::unregisterAnimation(Animation* animation)
{
    const auto found = m_spClock->find(animation);
    if (found != m_spClock->entries.end()) {
        m_spClock->entries.erase(found);
        ++m_spClock->revision;
    }
}

bool BasicAnimationManager::isRegistered(const Animation* animation) const
{
    return m_spClock->find(animation) != m_spClock->entries.end();
}

std::size_t BasicAnimationManager::animationCount() const
{
    return m_spClock->entries.size();
}

std::vector<Animation*> BasicAnimationManager::animations() const
{
    std::vector<Animation*> all;
    all.reserve(m_spClock->entries.size());
    for (const Clock::Entry& entry : m_spClock->entries) {
        all.push_back(entry.animation);
    }
    return all;
}

unsigned long long BasicAnimationManager::revision() const
{
    return m_spClock->revision;
}

void BasicAnimationManager::playAll()
{
    for (Clock::Entry& entry : m_spClock->entries) {
        entry.playing = true;
    }
    ++m_spClock->revision;
}

void BasicAnimationManager::stopAnimation(Animation* animation)
{
    const auto found = m_spClock->find(animation);
    if (found != m_spClock->entries.end()) {
        found->playing = false;
        ++m_spClock->revision;
    }
}

bool BasicAnimationManager::isPlaying(const Animation* animation) const
{
    const auto found = m_spClock->find(animation);
    return found != m_spClock->entries.end() && found->playing;
}

void BasicAnimationManager::play()
{
    m_spClock->paused = false;
}

void BasicAnimationManager::pause()
{
    m_spClock->paused = true;
}

bool BasicAnimationManager::isPaused() const
{
    return m_spClock->paused;
}

void BasicAnimationManager::setTime(double seconds)
{
    m_spClock->time = seconds > 0.0 ? std::min(seconds, duration()) : 0.0;
}

double BasicAnimationManager::time() const
{
    return m_spClock->time;
}

void BasicAnimationManager::setSpeed(double factor)
{
    if (std::isfinite(factor)) {
        m_spClock->speed = factor;
    }
}

double BasicAnimationManager::speed() const
{
    return m_spClock->speed;
}

void BasicAnimationManager::setLooping(bool looping)
{
    m_spClock->looping = looping;
}

bool BasicAnimationManager::isLooping() const
{
    return m_spClock->looping;
}

double BasicAnimationManager::duration() const
{
    return m_spClock->duration();
}

void BasicAnimationManager::update(double simulationTime)
{
    m_spClock->advance(simulationTime);
    m_spClock->pose();
}

void BasicAnimationManager::operator()(osg::Node* node, osg::NodeVisitor* visitor)
{
    if (visitor->getVisitorType() == osg::NodeVisitor::UPDATE_VISITOR) {
        const osg::FrameStamp* stamp = visitor->getFrameStamp();
        if (stamp) {
            update(stamp->getSimulationTime());
        } else {
            m_spClock->pose();
        }
    }
    traverse(node, visitor);
}

}  // namespace KivAnimation
