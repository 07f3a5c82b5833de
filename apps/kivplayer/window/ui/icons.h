#pragma once

#include <imgui.h>

namespace KivPlayer {

enum class Icon
{
    First,
    Back,
    Play,
    Pause,
    Forward,
    Last,
    Loop
};

/// A button with a picture on it, of the size of the bar's buttons.
/// @param lit whether it stands for something that is on.
bool iconButton(const char* name, Icon icon, const char* tip, bool lit = false);

}  // namespace KivPlayer
