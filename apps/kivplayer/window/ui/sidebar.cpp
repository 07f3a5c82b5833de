#include "apps/kivplayer/window/ui/sidebar.h"

#include <imgui.h>

#include "apps/kivplayer/window/ui/panels.h"

namespace KivPlayer {

namespace {

constexpr float kSecondColumn = 150.0f;  // where a row's second box stands

void drawOverlayBoxes(const UiContext& ui)
{
    bool second = false;
    for (const OverlayEntry& entry : overlayTable()) {
        if (!entry.isInPanel)
            continue;
        if (second)
            ImGui::SameLine(kSecondColumn);
        bool shown = ui.state.shown[entry.overlay];
        if (ImGui::Checkbox(entry.label, &shown))
            ui.ask(ToggleOverlay{entry.overlay});
        ui.note(entry.name);
        second = !second;
    }
}

}  // namespace

bool section(const char* title, bool open)
{
    ImGui::Spacing();
    return ImGui::CollapsingHeader(title, open ? ImGuiTreeNodeFlags_DefaultOpen : 0);
}

void tooltip(const char* text)
{
    if (ImGui::IsItemHovered())
        ImGui::SetTooltip("%s", text);
}

void Sidebar::draw(const UiContext& ui)
{
    const auto height = static_cast<float>(ui.state.area.windowHeight - kBarHeight);
    ImGui::SetNextWindowPos({0, 0});
    ImGui::SetNextWindowSize({static_cast<float>(kSidebarWidth), height});
    ImGui::Begin(kSidebarWindow, nullptr,
                 ImGuiWindowFlags_NoTitleBar | ImGuiWindowFlags_NoResize | ImGuiWindowFlags_NoMove |
                     ImGuiWindowFlags_NoBringToFrontOnFocus);
    if (section("Actors", true))
        m_actors.draw(ui);
    if (section("Show", true))
        drawOverlayBoxes(ui);
    if (!ui.state.props.empty() && section("Props", true))
        drawProps(ui);
    const bool painting = section("Contact colours", false);
    ui.note("contactColours");
    if (painting)
        m_contactColours.draw(ui);
    m_log.draw(ui);
    ImGui::End();
}

}  // namespace KivPlayer
