#pragma once

#include <map>

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/session/session.h"

namespace KivPlayer {

/// The times of a sequence or a video, evenly spaced; seconds.
struct OutputTimes
{
    double from = 0.0;
    double fps = 30.0;
    unsigned long long count = 1;

    double at(unsigned long long i) const { return from + static_cast<double>(i) / fps; }
};

/// The part of a motion of that length that the options ask for.
OutputTimes outputTimes(const Options& options, double duration);

/// The one moment that the options ask for; frames are those of the first actor, wherever its offset puts
/// them. Below 0 where a frame lies before the clock begins.
double stillTime(const Options& options, const std::map<unsigned, LoadedActor>& actors);

}  // namespace KivPlayer
