#pragma once

#include <string>
#include <vector>

#include "apps/kivplayer/options/options.h"

namespace CLI {
class App;
}

namespace KivPlayer {

/// The options as texts, before they are parsed. Empty: not given.
struct OptionTexts
{
    std::string output, time, frame, range, fps, resolution, samples, camera, position, target, follow,
        threshold, moments;
    std::string profile = "auto", unit = "auto", up = "auto";
    std::vector<std::string> show, hide, offsets;
    bool firstFrameIsRest = false;
    bool noRender = false;
};

/// Declares the options to the parser. Plain values go straight to the options, the others to the texts; both
/// must outlive the parsing.
void declareOptions(CLI::App& app, Options& options, OptionTexts& texts);

}  // namespace KivPlayer
