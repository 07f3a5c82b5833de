#include "apps/kivplayer/window/state/framepace.h"

#include <algorithm>

namespace KivPlayer {

namespace {

constexpr double kSpan = 2.0;              // seconds that the mean is taken over
constexpr unsigned long long kEnough = 8;  // frames that tell something
/// Milliseconds. Between the last two lie shadows that cost half of a frame: no swinging to and fro.
constexpr double kTooSlowForFine = 30.0;
constexpr double kTooSlowForShadows = 110.0;
constexpr double kFastEnoughForShadows = 40.0;

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

void FramePace::beginAnew()
{
    m_times.longest = 0.0;
    m_times.longestBetween = 0.0;
}

void DetailChoice::judge(const FrameTimes& times)
{
    // The mean is that of the present detail once two seconds of it have passed.
    const double since = static_cast<double>(times.frames - m_since) * times.mean;
    if (m_decided || times.frames < m_since + kEnough || since < 1000.0 * kSpan)
        return;
    if (m_detail == StageDetail::Fine && times.mean > kTooSlowForFine)
        change(StageDetail::Quick, times);
    else if (m_detail == StageDetail::Quick && times.mean > kTooSlowForShadows)
        change(StageDetail::Plain, times);
    else if (m_detail == StageDetail::Plain && times.mean < kFastEnoughForShadows)
        change(StageDetail::Quick, times);
    if (m_detail != StageDetail::Plain)
        m_best = m_detail;
}

void DetailChoice::setShadows(bool shown)
{
    m_decided = true;
    m_detail = shown ? m_best : StageDetail::Plain;
}

void DetailChoice::change(StageDetail detail, const FrameTimes& times)
{
    m_detail = detail;
    m_since = times.frames;
}

}  // namespace KivPlayer
