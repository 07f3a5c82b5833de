#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "apps/kivplayer/options/overlays.h"
#include "apps/kivplayer/report/fitreport.h"
#include "apps/kivplayer/window/state/framepace.h"
#include "apps/kivplayer/window/state/propstate.h"
#include "apps/kivplayer/window/state/transport.h"
#include "apps/kivplayer/window/state/viewarea.h"

namespace KivPlayer {

struct ActorState
{
    unsigned index = 0;
    std::string name;
    std::string file;
    std::size_t frames = 0;
    std::size_t joints = 0;
    double offset = 0.0;  ///< when it starts on the clock, seconds
    bool visible = true;

    std::string id() const { return std::to_string(index); }
};

struct LogLine
{
    std::string text;
    bool isError = false;
};

struct LoadingState
{
    bool isBusy = false;
    std::string file;  ///< that is being read or dressed
    int percent = 0;
};

/// Everything that the panels read: plain data, which only the controller changes, between frames.
struct WindowState
{
    ViewArea area;
    Transport transport;
    OverlaySet shown;
    std::vector<ActorState> actors;    ///< in the order of their indices
    std::set<std::string> jointNames;  ///< of all actors, without qualifier
    std::vector<PropState> props;
    std::optional<unsigned> followed;  ///< the actor that the camera goes along with
    LoadingState loading;
    std::string message;  ///< for a few seconds; empty: none
    std::vector<LogLine> log;
    FitReport fitReport;  ///< up to date while it is shown
    FrameTimes frameTimes;

    /// @return null where there is no such actor.
    const ActorState* actor(unsigned index) const
    {
        for (const ActorState& one : actors)
            if (one.index == index)
                return &one;
        return nullptr;
    }
};

}  // namespace KivPlayer
