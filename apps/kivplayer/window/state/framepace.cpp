#include "apps/kivplayer/window/state/framepace.h"

#include <algorithm>

namespace KivPlayer {

namespace {

constexpr double kSpan = 2.0;  // seconds that the mean is taken over

}  // namespace

void FramePace::note(double drawing, double between)
{
    m_frames.push_back({drawing, between});
    ++m_times.frames;
    double whole = 0.0;
    double beside = 0.0;
    double worst = 0.0;
    for (const Frame& frame : m_frames) {
        whole += frame.drawing + frame.between;
        beside += frame.between;
        worst = std::max(worst, frame.drawing + frame.between);
    }
    const double toMean = 1000.0 / static_cast<double>(m_frames.size());
    m_times.mean = whole * toMean;
    m_times.between = beside * toMean;
    m_times.worst = 1000.0 * worst;
    m_times.longest = std::max(m_times.longest, 1000.0 * (drawing + between));
    m_times.longestBetween = std::max(m_times.longestBetween, 1000.0 * between);
    while (m_frames.size() > 1 && whole > kSpan) {
        whole -= m_frames.front().drawing + m_frames.front().between;
        m_frames.pop_front();
    }
}

void FramePace::reset()
{
    m_times.longest = 0.0;
    m_times.longestBetween = 0.0;
}

}  // namespace KivPlayer
