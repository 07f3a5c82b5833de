#pragma once

#include <imgui.h>

#include <string>

namespace KivPlayer::Theme {

constexpr float kFontSize = 16.0f;

/// Colours that are drawn by hand.
ImU32 accent();
ImU32 track();
ImU32 text();
ImU32 faint();
ImU32 warning();

/// Sets the current context's style, and its font where the file can be read.
void apply(const std::string& fontFile);

}  // namespace KivPlayer::Theme
