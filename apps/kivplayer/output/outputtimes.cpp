#include "apps/kivplayer/output/outputtimes.h"

#include <algorithm>
#include <cmath>

namespace KivPlayer {

OutputTimes outputTimes(const Options& options, double duration)
{
    const double from = options.range ? options.range->first : 0.0;
    const double to = options.range ? std::min(options.range->second, duration) : duration;
    // A frame that falls on the end belongs to the sequence, whatever the rounding of its time.
    const double pictures = std::floor((to - from) * options.fps + 1e-6) + 1.0;
    return {from, options.fps, static_cast<unsigned long long>(std::max(1.0, pictures))};
}

double stillTime(const Options& options, const std::map<unsigned, LoadedActor>& actors)
{
    if (options.time)
        return *options.time;
    if (options.frame && !actors.empty())
        return actors.begin()->second.timeOf(static_cast<double>(*options.frame));
    return 0.0;
}

}  // namespace KivPlayer
