#pragma once

#include "apps/kivplayer/window/ui/uicontext.h"

namespace KivPlayer {

constexpr int kSidebarWidth = 300;  // pixels
constexpr int kBarHeight = 92;

/// The names of the panels that the keyboard can be given to.
constexpr const char* kSidebarWindow = "##sidebar";
constexpr const char* kBarWindow = "##bar";

/// The bar at the bottom: the time line and what moves along it.
void drawPlayBar(const UiContext& ui);
void drawProps(const UiContext& ui);
/// How every actor was dressed, a table over the scene.
void drawFitReport(const UiContext& ui);
void drawHelp(const UiContext& ui);
/// What to do in a window without actors.
void drawEmptyView(const UiContext& ui);
void drawStatistics(const UiContext& ui);

/// A part of the sidebar that opens and closes.
bool section(const char* title, bool open);
/// For who points at the widget that was drawn last.
void tooltip(const char* text);

}  // namespace KivPlayer
