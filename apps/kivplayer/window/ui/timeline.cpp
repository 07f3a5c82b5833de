#include "apps/kivplayer/window/ui/timeline.h"

#include <imgui.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "apps/kivplayer/window/ui/theme.h"

namespace KivPlayer {

namespace {

constexpr float kHeight = 34.0f;
constexpr float kKnob = 7.0f;
constexpr float kLine = 11.0f;  // below the top
constexpr double kLabelRoom = 78.0;

/// Seconds between two labels that do not run into each other.
double labelStep(double duration, double width)
{
    constexpr std::array<double, 14> kSteps{0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 30, 60, 120, 300, 600};
    for (const double step : kSteps)
        if (step / duration * width >= kLabelRoom)
            return step;
    return 3600.0;
}

void drawScale(const Transport& transport, ImVec2 from, float width)
{
    ImDrawList& draw = *ImGui::GetWindowDrawList();
    if (transport.duration() <= 0.0)
        return;
    const double step = labelStep(transport.duration(), static_cast<double>(width));
    for (int i = 0; i * step <= transport.duration() + 1e-9; ++i) {
        const float x = from.x + width * static_cast<float>(i * step / transport.duration());
        draw.AddLine({x, from.y + kLine + 6}, {x, from.y + kLine + 11}, Theme::faint());
        char label[32];
        std::snprintf(label, sizeof label,
                      step < 0.1   ? "%.2f s"
                      : step < 1.0 ? "%.1f s"
                                   : "%.0f s",
                      i * step);
        const float wide = ImGui::CalcTextSize(label).x * 0.8f;
        const float left = std::clamp(x - wide / 2, from.x - kKnob, from.x + width - wide + kKnob);
        draw.AddText(ImGui::GetFont(), Theme::kFontSize * 0.8f, {left, from.y + kLine + 12}, Theme::faint(),
                     label);
    }
}

}  // namespace

std::optional<double> drawTimeline(const Transport& transport)
{
    const ImVec2 corner = ImGui::GetCursorScreenPos();
    const float whole = std::max(60.0f, ImGui::GetContentRegionAvail().x);
    ImGui::InvisibleButton("##timeline", {whole, kHeight});
    const bool active = ImGui::IsItemActive();
    const bool hovered = ImGui::IsItemHovered();
    const ImVec2 from{corner.x + kKnob, corner.y};
    const float width = whole - 2 * kKnob;
    std::optional<double> wanted;
    if ((active || ImGui::IsItemDeactivated()) && transport.duration() > 0.0) {
        const float share = std::clamp((ImGui::GetIO().MousePos.x - from.x) / width, 0.0f, 1.0f);
        double time = static_cast<double>(share) * transport.duration();
        if (transport.frameTime() > 0.0)
            time = std::round(time / transport.frameTime()) * transport.frameTime();
        wanted = time;
    }
    const double length = transport.duration() > 0.0 ? transport.duration() : 1.0;
    const float x = from.x + width * static_cast<float>(transport.time() / length);
    const float y = from.y + kLine;
    ImDrawList& draw = *ImGui::GetWindowDrawList();
    drawScale(transport, from, width);
    draw.AddRectFilled({from.x, y - 2.5f}, {from.x + width, y + 2.5f}, Theme::track(), 2.5f);
    draw.AddRectFilled({from.x, y - 2.5f}, {x, y + 2.5f}, Theme::accent(), 2.5f);
    draw.AddCircleFilled({x, y}, active || hovered ? kKnob + 1 : kKnob, Theme::accent(), 24);
    draw.AddCircleFilled({x, y}, 2.5f, Theme::text(), 16);
    return wanted;
}

}  // namespace KivPlayer
