#include "apps/kivplayer/window/state/qualitygovernor.h"

namespace KivPlayer {

namespace {

constexpr double kJudgedSpan = 2.0;        // seconds that the mean is taken over
constexpr unsigned long long kEnough = 8;  // frames that tell something
/// Milliseconds. Between the last two lie shadows that cost half of a frame: no swinging to and fro.
constexpr double kTooSlowForFine = 30.0;
constexpr double kTooSlowForShadows = 110.0;
constexpr double kFastEnoughForShadows = 40.0;

}  // namespace

void QualityGovernor::judge(const FrameTimes& times)
{
    // The mean is that of the present detail once two seconds of it have passed.
    const double since = static_cast<double>(times.frames - m_since) * times.mean;
    if (m_decided || times.frames < m_since + kEnough || since < 1000.0 * kJudgedSpan)
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

void QualityGovernor::setShadows(bool shown)
{
    m_decided = true;
    m_detail = shown ? m_best : StageDetail::Plain;
}

void QualityGovernor::change(StageDetail detail, const FrameTimes& times)
{
    m_detail = detail;
    m_since = times.frames;
}

}  // namespace KivPlayer
