#include "apps/kivplayer/window/ui/icons.h"

#include <string>

#include "apps/kivplayer/window/ui/theme.h"

namespace KivPlayer {

namespace {

const ImVec2 kButton(38, 30);

/// Points to the right; with a negative size to the left.
void drawTriangle(ImDrawList& draw, float x, float y, float size, ImU32 colour)
{
    const float half = size < 0 ? -size : size;
    draw.AddTriangleFilled({x - size * 0.5f, y - half}, {x - size * 0.5f, y + half}, {x + size, y}, colour);
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

/// The way that frames lead, and whether a bar stands at its end.
struct Arrow
{
    float triangleAt;
    float size;
    float barAt;
};

Arrow arrowOf(Icon icon)
{
    switch (icon) {
        case Icon::First:
            return {2, -6, -6};
        case Icon::Back:
            return {-2, -5.5f, 6};
        case Icon::Forward:
            return {2, 5.5f, -6};
        default:
            return {-2, 6, 6};
    }
}

void drawIcon(Icon icon, float x, float y, ImU32 colour)
{
    ImDrawList& draw = *ImGui::GetWindowDrawList();
    if (icon == Icon::Play) {
        drawTriangle(draw, x - 1, y, 7.5f, colour);
    } else if (icon == Icon::Pause) {
        drawBar(draw, x - 4, y, 6.5f, colour);
        drawBar(draw, x + 4, y, 6.5f, colour);
    } else if (icon == Icon::Loop) {
        drawLoop(draw, x, y, colour);
    } else {
        const Arrow arrow = arrowOf(icon);
        drawTriangle(draw, x + arrow.triangleAt, y, arrow.size, colour);
        drawBar(draw, x + arrow.barAt, y, 6, colour);
    }
}

}  // namespace

bool iconButton(const char* name, Icon icon, const char* tip, bool lit)
{
    const ImVec2 corner = ImGui::GetCursorScreenPos();
    const bool pressed = ImGui::Button((std::string("##") + name).c_str(), kButton);
    if (ImGui::IsItemHovered())
        ImGui::SetTooltip("%s", tip);
    drawIcon(icon, corner.x + kButton.x / 2, corner.y + kButton.y / 2, lit ? Theme::accent() : Theme::text());
    return pressed;
}

}  // namespace KivPlayer
