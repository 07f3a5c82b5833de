#include <imgui.h>

#include <algorithm>
#include <cstdio>

#include "apps/kivplayer/window/ui/icons.h"
#include "apps/kivplayer/window/ui/panels.h"
#include "apps/kivplayer/window/ui/theme.h"
#include "apps/kivplayer/window/ui/timeline.h"

namespace KivPlayer {

namespace {

void button(const UiContext& ui, const char* name, Icon icon, const char* tip, Action action,
            bool lit = false)
{
    if (iconButton(name, icon, tip, lit))
        ui.ask(action);
    ui.note(name);
    ImGui::SameLine(0, 4);
}

void buttons(const UiContext& ui)
{
    const bool playing = ui.state.transport.isPlaying();
    button(ui, "first", Icon::First, "First frame (Ctrl+Home)", Action::FirstFrame);
    button(ui, "back", Icon::Back, "One frame back (,)", Action::StepBack);
    button(ui, "play", playing ? Icon::Pause : Icon::Play, playing ? "Pause (Space)" : "Play (Space)",
           Action::TogglePlay);
    button(ui, "forward", Icon::Forward, "One frame on (.)", Action::StepForward);
    button(ui, "last", Icon::Last, "Last frame (Ctrl+End)", Action::LastFrame);
    button(ui, "loop", Icon::Loop, "Play over and over (l)", Action::ToggleLoop,
           ui.state.transport.isLooping());
}

void speed(const UiContext& ui)
{
    ImGui::SameLine(0, 16);
    char label[16];
    std::snprintf(label, sizeof label, "%gx", ui.state.transport.speed());
    ImGui::SetNextItemWidth(84);
    if (ImGui::BeginCombo("##speed", label)) {
        for (const double factor : Transport::kSpeeds) {
            std::snprintf(label, sizeof label, "%gx", factor);
            if (ImGui::Selectable(label, factor == ui.state.transport.speed()))
                ui.ask(SetSpeed{factor});
        }
        ImGui::EndCombo();
    }
    ui.note("speed");
    if (ImGui::IsItemHovered())
        ImGui::SetTooltip("Speed ([ and ])");
}

/// A text that ends there, so that numbers stand still while they count.
void endingAt(float right, const char* text, bool faint = false)
{
    ImGui::SameLine(right - ImGui::CalcTextSize(text).x);
    ImGui::AlignTextToFramePadding();
    if (faint)
        ImGui::TextDisabled("%s", text);
    else
        ImGui::TextUnformatted(text);
}

/// Frame and time, at the right end.
void position(const UiContext& ui, float width)
{
    const Transport& clock = ui.state.transport;
    const double rate = clock.frameTime() > 0.0 ? 1.0 / clock.frameTime() : 0.0;
    char text[96];
    std::snprintf(text, sizeof text, "frame %lld", clock.frame());
    endingAt(width - 378, text);
    std::snprintf(text, sizeof text, "of 0\xE2\x80\x93%lld", clock.frameCount() - 1);
    ImGui::SameLine(0, 6);
    ImGui::TextDisabled("%s", text);
    std::snprintf(text, sizeof text, "%.3f", std::min(clock.time(), clock.duration()));
    endingAt(width - 188, text);
    std::snprintf(text, sizeof text, "/ %.3f s", clock.duration());
    ImGui::SameLine(0, 6);
    ImGui::TextDisabled("%s", text);
    std::snprintf(text, sizeof text, "%.4g fps", rate);
    endingAt(width - 14, text, true);
}

}  // namespace

void drawPlayBar(const UiContext& ui)
{
    const int width = ui.state.area.windowWidth;
    const int height = ui.state.area.windowHeight;
    ImGui::SetNextWindowPos({0, static_cast<float>(height - kBarHeight)});
    ImGui::SetNextWindowSize({static_cast<float>(width), static_cast<float>(kBarHeight)});
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(14, 8));
    ImGui::Begin(
        kBarWindow, nullptr,
        ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoBringToFrontOnFocus);
    if (const std::optional<double> time = drawTimeline(ui.state.transport))
        ui.ask(SetTime{*time});
    ui.note("timeline");
    buttons(ui);
    speed(ui);
    const std::string& status = ui.state.message;
    if (!status.empty()) {
        ImGui::SameLine(0, 16);
        ImGui::AlignTextToFramePadding();
        ImGui::PushClipRect({0, 0}, {static_cast<float>(width) - 470, static_cast<float>(height)}, true);
        ImGui::TextDisabled("%s", status.c_str());
        ImGui::PopClipRect();
    }
    position(ui, static_cast<float>(width));
    ImGui::End();
    ImGui::PopStyleVar();
}

}  // namespace KivPlayer
