#include <imgui.h>

#include <cstdio>

#include "window/panels.h"
#include "window/theme.h"
#include "window/timeline.h"

namespace KivPlayer {

namespace {

const ImVec2 kButton(38, 30);

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

void drawTriangle(ImDrawList& draw, float x, float y, float size, ImU32 colour)
{
    draw.AddTriangleFilled({x - size * 0.5f, y - size}, {x - size * 0.5f, y + size}, {x + size, y}, colour);
}

void drawTriangleBack(ImDrawList& draw, float x, float y, float size, ImU32 colour)
{
    draw.AddTriangleFilled({x + size * 0.5f, y + size}, {x + size * 0.5f, y - size}, {x - size, y}, colour);
}

void drawBar(ImDrawList& draw, float x, float y, float half, ImU32 colour)
{
    draw.AddRectFilled({x - 1.5f, y - half}, {x + 1.5f, y + half}, colour);
}

void drawLoop(ImDrawList& draw, float x, float y, ImU32 colour)
{
    draw.PathArcTo({x, y}, 6.5f, -0.9f, 4.2f, 24);
    draw.PathStroke(colour, 0, 2.0f);
    draw.AddTriangleFilled({x + 1.0f, y - 8.5f}, {x + 8.0f, y - 7.0f}, {x + 3.0f, y - 2.0f}, colour);
}

void drawIcon(Icon icon, float x, float y, ImU32 colour)
{
    ImDrawList& draw = *ImGui::GetWindowDrawList();
    switch (icon) {
        case Icon::First:
            drawBar(draw, x - 6, y, 6, colour);
            drawTriangleBack(draw, x + 2, y, 6, colour);
            break;
        case Icon::Back:
            drawTriangleBack(draw, x - 2, y, 5.5f, colour);
            drawBar(draw, x + 6, y, 5.5f, colour);
            break;
        case Icon::Play:
            drawTriangle(draw, x - 1, y, 7.5f, colour);
            break;
        case Icon::Pause:
            drawBar(draw, x - 4, y, 6.5f, colour);
            drawBar(draw, x + 4, y, 6.5f, colour);
            break;
        case Icon::Forward:
            drawBar(draw, x - 6, y, 5.5f, colour);
            drawTriangle(draw, x + 2, y, 5.5f, colour);
            break;
        case Icon::Last:
            drawTriangle(draw, x - 2, y, 6, colour);
            drawBar(draw, x + 6, y, 6, colour);
            break;
        case Icon::Loop:
            drawLoop(draw, x, y, colour);
            break;
    }
}

bool iconButton(Desk& desk, const char* name, Icon icon, const char* tip, bool lit = false)
{
    const ImVec2 corner = ImGui::GetCursorScreenPos();
    const bool pressed = ImGui::Button((std::string("##") + name).c_str(), kButton);
    notePlace(desk, name);
    if (ImGui::IsItemHovered())
        ImGui::SetTooltip("%s", tip);
    drawIcon(icon, corner.x + kButton.x / 2, corner.y + kButton.y / 2, lit ? Theme::accent() : Theme::text());
    ImGui::SameLine(0, 4);
    return pressed;
}

void buttons(Desk& desk)
{
    if (iconButton(desk, "first", Icon::First, "First frame (Ctrl+Home)"))
        desk.perform(Action::FirstFrame);
    if (iconButton(desk, "back", Icon::Back, "One frame back (,)"))
        desk.perform(Action::StepBack);
    const bool playing = desk.transport.isPlaying();
    if (iconButton(desk, "play", playing ? Icon::Pause : Icon::Play,
                   playing ? "Pause (Space)" : "Play (Space)"))
        desk.perform(Action::TogglePlay);
    if (iconButton(desk, "forward", Icon::Forward, "One frame on (.)"))
        desk.perform(Action::StepForward);
    if (iconButton(desk, "last", Icon::Last, "Last frame (Ctrl+End)"))
        desk.perform(Action::LastFrame);
    if (iconButton(desk, "loop", Icon::Loop, "Play over and over", desk.transport.isLooping()))
        desk.transport.setLooping(!desk.transport.isLooping());
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

/// Frame and time, at the right end.
void position(const Desk& desk, float width)
{
    const Transport& clock = desk.transport;
    char text[160];
    const double rate = clock.frameTime() > 0.0 ? 1.0 / clock.frameTime() : 0.0;
    std::snprintf(text, sizeof text, "frame %lld of 0\xE2\x80\x93%lld", clock.frame(),
                  clock.frameCount() - 1);
    char time[96];
    std::snprintf(time, sizeof time, "%.3f / %.3f s",
                  clock.time() < clock.duration() ? clock.time() : clock.duration(), clock.duration());
    char fps[48];
    std::snprintf(fps, sizeof fps, "%.4g fps", rate);
    ImGui::SameLine(width - 410);
    ImGui::AlignTextToFramePadding();
    ImGui::TextUnformatted(text);
    ImGui::SameLine(width - 225);
    ImGui::TextUnformatted(time);
    ImGui::SameLine(width - 80);
    ImGui::TextDisabled("%s", fps);
}

}  // namespace

void notePlace(Desk& desk, const std::string& name)
{
    const ImVec2 from = ImGui::GetItemRectMin();
    const ImVec2 to = ImGui::GetItemRectMax();
    desk.places[name] = {from.x, from.y, to.x - from.x, to.y - from.y};
}

void describeBar(Desk& desk, int width, int height)
{
    ImGui::SetNextWindowPos({0, static_cast<float>(height - kBarHeight)});
    ImGui::SetNextWindowSize({static_cast<float>(width), static_cast<float>(kBarHeight)});
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(14, 8));
    ImGui::Begin(
        "##bar", nullptr,
        ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoBringToFrontOnFocus);
    timeline(desk.transport);
    notePlace(desk, "timeline");
    buttons(desk);
    speed(desk);
    const std::string status = desk.status();
    if (!status.empty()) {
        ImGui::SameLine(0, 16);
        ImGui::AlignTextToFramePadding();
        ImGui::PushClipRect({0, 0}, {static_cast<float>(width) - 430, static_cast<float>(height)}, true);
        ImGui::TextDisabled("%s", status.c_str());
        ImGui::PopClipRect();
    }
    position(desk, static_cast<float>(width));
    ImGui::End();
    ImGui::PopStyleVar();
}

}  // namespace KivPlayer
