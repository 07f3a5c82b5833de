#pragma once

#include <deque>

namespace KivPlayer {

/// How long the last frames took, milliseconds.
struct FrameTimes
{
    double mean = 0.0;  ///< from one frame to the next, over the last two seconds
    double worst = 0.0;
    double between = 0.0;         ///< of the mean: what the loop did beside drawing
    double longestBetween = 0.0;  ///< ever since it was last reset
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
    void reset();

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

}  // namespace KivPlayer
