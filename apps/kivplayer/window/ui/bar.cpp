#include <imgui.h>

#include <algorithm>
#include <cstdio>

#include "apps/kivplayer/window/ui/icons.h"
#include "apps/kivplayer/window/ui/panels.h"
#include "apps/kivplayer/window/ui/theme.h"
#include "apps/kivplayer/window/ui/timeline.h"

namespace KivPlayer {

namespace {

void button(Desk& desk, const char* name, Icon icon, const char* tip, Action action, bool lit = false)
{
    if (iconButton(name, icon, tip, lit))
        desk.perform(action);
    notePlace(desk, name);
    ImGui::SameLine(0, 4);
}

void buttons(Desk& desk)
{
    const bool playing = desk.transport.isPlaying();
    button(desk, "first", Icon::First, "First frame (Ctrl+Home)", Action::FirstFrame);
    button(desk, "back", Icon::Back, "One frame back (,)", Action::StepBack);
    button(desk, "play", playing ? Icon::Pause : Icon::Play, playing ? "Pause (Space)" : "Play (Space)",
           Action::TogglePlay);
    button(desk, "forward", Icon::Forward, "One frame on (.)", Action::StepForward);
    button(desk, "last", Icon::Last, "Last frame (Ctrl+End)", Action::LastFrame);
    button(desk, "loop", Icon::Loop, "Play over and over (l)", Action::Loop, desk.transport.isLooping());
}

void speed(Desk& desk)
{
    ImGui::SameLine(0, 16);
    char label[16];
    std::snprintf(label, sizeof label, "%gx", desk.transport.speed());
    ImGui::SetNextItemWidth(84);
    if (ImGui::BeginCombo("##speed", label)) {
        for (const double factor : {0.1, 0.25, 0.5, 1.0, 2.0, 4.0}) {
            std::snprintf(label, sizeof label, "%gx", factor);
            if (ImGui::Selectable(label, factor == desk.transport.speed()))
                desk.transport.setSpeed(factor);
        }
        ImGui::EndCombo();
    }
    notePlace(desk, "speed");
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
void position(const Desk& desk, float width)
{
    const Transport& clock = desk.transport;
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

void notePlace(Desk& desk, const std::string& name)
{
    const ImVec2 from = ImGui::GetItemRectMin();
    const ImVec2 to = ImGui::GetItemRectMax();
    desk.places[name] = {from.x, from.y, to.x - from.x, to.y - from.y};
    if (ImGui::IsItemFocused())
        desk.control = name;
}

void describeBar(Desk& desk, int width, int height)
{
    ImGui::SetNextWindowPos({0, static_cast<float>(height - kBarHeight)});
    ImGui::SetNextWindowSize({static_cast<float>(width), static_cast<float>(kBarHeight)});
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(14, 8));
    ImGui::Begin(
        kBarWindow, nullptr,
        ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoBringToFrontOnFocus);
    timeline(desk.transport);
    notePlace(desk, "timeline");
    buttons(desk);
    speed(desk);
    const std::string status = desk.status();
    if (!status.empty()) {
        ImGui::SameLine(0, 16);
        ImGui::AlignTextToFramePadding();
        ImGui::PushClipRect({0, 0}, {static_cast<float>(width) - 470, static_cast<float>(height)}, true);
        ImGui::TextDisabled("%s", status.c_str());
        ImGui::PopClipRect();
    }
    position(desk, static_cast<float>(width));
    ImGui::End();
    ImGui::PopStyleVar();
}

}  // namespace KivPlayer
