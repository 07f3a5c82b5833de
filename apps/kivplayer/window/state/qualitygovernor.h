#pragma once

#include "apps/kivplayer/stage/stage.h"
#include "apps/kivplayer/window/state/framepace.h"

namespace KivPlayer {

/// Chooses how much is spent on light and shadow: shadows only where they hold the frame rate, unless
/// somebody has decided about them.
class QualityGovernor
{
public:
    /// Begins anew with the best that may be.
    /// @param software whether the processor draws by itself.
    void start(bool software)
    {
        m_best = software ? StageDetail::Quick : StageDetail::Fine;
        m_detail = m_best;
    }

    /// Judges by the frames since the last change, once they tell enough.
    void judge(const FrameTimes& times);
    StageDetail detail() const { return m_detail; }

    bool shadows() const { return m_detail != StageDetail::Plain; }
    void setShadows(bool shown);

private:
    void change(StageDetail detail, const FrameTimes& times);

    StageDetail m_detail = StageDetail::Fine;
    StageDetail m_best = StageDetail::Fine;
    bool m_decided = false;  ///< by the user
    unsigned long long m_since = 0;
};

}  // namespace KivPlayer
