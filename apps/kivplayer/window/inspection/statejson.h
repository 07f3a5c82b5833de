#pragma once

#include <osg/Camera>

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "apps/kivplayer/stage/framing.h"
#include "apps/kivplayer/window/state/propswatch.h"
#include "apps/kivplayer/window/state/windowstate.h"
#include "apps/kivplayer/window/ui/widgetlog.h"

namespace KivPlayer {

/// What a test looks at beside the state that the panels read.
struct Inspection
{
    const WindowState& state;
    const WidgetLog& widgets;
    const PropsWatch& props;
    const osg::Camera& camera;  ///< of the view, for where things are seen
    CameraPose pose;
    std::string focusedPanel;
    std::size_t commands = 0;                             ///< that are on their way
    std::vector<std::string> pictures;                    ///< that were written
    std::vector<std::pair<std::string, double>> startUp;  ///< what it was spent on, seconds
    bool isRunning = true;
};

/// With the frame being changed by nobody: between frames, inside a pass of the gate.
nlohmann::ordered_json stateJson(const Inspection& inspection);

}  // namespace KivPlayer
