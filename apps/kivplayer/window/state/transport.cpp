#include "apps/kivplayer/window/state/transport.h"

#include <algorithm>
#include <cmath>

namespace KivPlayer {

namespace {

/// A frame is reached a little before its time, so that rounding never shows the one before.
constexpr double kFrameSlack = 1e-6;

}  // namespace

void Transport::setMotion(double duration, double frameTime)
{
    m_duration = std::max(0.0, duration);
    m_frameTime = std::max(0.0, frameTime);
    m_time = std::clamp(m_time, 0.0, m_duration);
}

void Transport::advance(double realSeconds)
{
    if (!m_playing || m_duration <= 0.0)
        return;
    m_time += realSeconds * m_speed;
    // The last frame is on show as long as every other one.
    const double end = m_duration + m_frameTime;
    if (m_looping && m_time >= end)
        m_time = std::fmod(m_time, end);
    else if (!m_looping && m_time >= m_duration) {
        m_time = m_duration;
        m_playing = false;
    }
}

void Transport::play()
{
    if (!m_looping && m_time >= m_duration)
        m_time = 0.0;
    m_playing = true;
}

void Transport::setTime(double seconds)
{
    m_time = std::clamp(seconds, 0.0, m_duration);
}

void Transport::step(int frames)
{
    m_playing = false;
    setTime(static_cast<double>(frame() + frames) * m_frameTime);
}

long long Transport::frame() const
{
    if (m_frameTime <= 0.0)
        return 0;
    return std::min(static_cast<long long>(std::floor(m_time / m_frameTime + kFrameSlack)), frameCount() - 1);
}

long long Transport::frameCount() const
{
    return m_frameTime > 0.0 ? std::llround(m_duration / m_frameTime) + 1 : 1;
}

void Transport::faster()
{
    const auto next = std::upper_bound(kSpeeds.begin(), kSpeeds.end(), m_speed);
    m_speed = next != kSpeeds.end() ? *next : kSpeeds.back();
}

void Transport::slower()
{
    const auto here = std::lower_bound(kSpeeds.begin(), kSpeeds.end(), m_speed);
    m_speed = here != kSpeeds.begin() ? *std::prev(here) : kSpeeds.front();
}

}  // namespace KivPlayer
