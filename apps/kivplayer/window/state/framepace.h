#pragma once

#include <deque>

#include "apps/kivplayer/stage/stage.h"

namespace KivPlayer {

/// How long the last frames took, milliseconds.
struct FrameTimes
{
    double mean = 0.0;  ///< from one frame to the next, over the last two seconds
    double worst = 0.0;
    double between = 0.0;         ///< of the mean: what the loop did beside drawing
    double longestBetween = 0.0;  ///< ever since it was last asked to begin anew
    double longest = 0.0;         ///< frame, likewise
    unsigned long long frames = 0;
};

/// Watches the frame loop.
class FramePace
{
public:
    /// @param drawing seconds inside the viewer's frame, @param between seconds since the frame before.
    void note(double drawing, double between);
    /// Forgets the longest ones.
    void beginAnew();

    const FrameTimes& times() const { return m_times; }

private:
    struct Frame
    {
        double drawing;
        double between;
    };

    std::deque<Frame> m_frames;
    FrameTimes m_times;
};

/// Chooses how much is spent on light and shadow: shadows only where they hold the frame rate, unless
/// somebody has decided about them.
class DetailChoice
{
public:
    /// @param software whether the processor draws by itself.
    explicit DetailChoice(bool software)
        : m_detail(software ? StageDetail::Quick : StageDetail::Fine), m_best(m_detail)
    {}

    /// Judges by the frames since the last change, once they tell enough.
    void judge(const FrameTimes& times);
    StageDetail detail() const { return m_detail; }

    bool shadows() const { return m_detail != StageDetail::Plain; }
    void setShadows(bool shown);

private:
    void change(StageDetail detail, const FrameTimes& times);

    StageDetail m_detail;
    StageDetail m_best;
    bool m_decided = false;  ///< by the user
    unsigned long long m_since = 0;
};

}  // namespace KivPlayer
