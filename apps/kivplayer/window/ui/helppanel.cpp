#include <imgui.h>

#include "apps/kivplayer/window/state/keytable.h"
#include "apps/kivplayer/window/ui/panels.h"
#include "apps/kivplayer/window/ui/theme.h"

namespace KivPlayer {

namespace {

constexpr ImGuiWindowFlags kStill = ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove |
                                    ImGuiWindowFlags_AlwaysAutoResize | ImGuiWindowFlags_NoSavedSettings |
                                    ImGuiWindowFlags_NoFocusOnAppearing;

void row(const std::string& key, const std::string& text)
{
    ImGui::TableNextRow();
    ImGui::TableNextColumn();
    ImGui::PushStyleColor(ImGuiCol_Text, Theme::accent());
    ImGui::TextUnformatted(key.c_str());
    ImGui::PopStyleColor();
    ImGui::TableNextColumn();
    ImGui::TextUnformatted(text.c_str());
}

}  // namespace

void drawHelp(const UiContext& ui)
{
    const float x = 0.5f * static_cast<float>(ui.state.area.windowWidth + kSidebarWidth);
    const float y = 0.5f * static_cast<float>(ui.state.area.windowHeight - kBarHeight);
    ImGui::SetNextWindowPos({x, y}, ImGuiCond_Always, {0.5f, 0.5f});
    ImGui::PushStyleVar(ImGuiStyleVar_WindowRounding, 8.0f);
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(24, 20));
    ImGui::Begin("##help", nullptr, kStill);
    ImGui::TextDisabled("Keys and mouse");
    ImGui::Spacing();
    if (ImGui::BeginTable("##keys", 2, ImGuiTableFlags_SizingFixedFit)) {
        ImGui::TableSetupColumn("key", 0, 150);
        ImGui::TableSetupColumn("text", 0, 300);
        for (const KeyBinding& binding : keyBindings())
            row(binding.name, binding.text);
        for (const MouseBinding& binding : mouseBindings())
            row(binding.name, binding.text);
        ImGui::EndTable();
    }
    ui.note("help");
    ImGui::End();
    ImGui::PopStyleVar(2);
}

void drawEmptyView(const UiContext& ui)
{
    const float x = 0.5f * static_cast<float>(ui.state.area.windowWidth + kSidebarWidth);
    const float y = 0.5f * static_cast<float>(ui.state.area.windowHeight - kBarHeight);
    ImGui::SetNextWindowPos({x, y}, ImGuiCond_Always, {0.5f, 0.5f});
    ImGui::PushStyleVar(ImGuiStyleVar_WindowRounding, 8.0f);
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(24, 20));
    ImGui::Begin("##empty", nullptr, kStill | ImGuiWindowFlags_NoInputs);
    ImGui::TextUnformatted("Drop motion files here");
    ImGui::TextDisabled("or type a path at the left; h shows all keys");
    ImGui::End();
    ImGui::PopStyleVar(2);
}

void drawStatistics(const UiContext& ui)
{
    ImGui::SetNextWindowPos({static_cast<float>(ui.state.area.windowWidth) - 16, 16}, ImGuiCond_Always,
                            {1.0f, 0.0f});
    ImGui::PushStyleVar(ImGuiStyleVar_WindowRounding, 6.0f);
    ImGui::Begin("##statistics", nullptr, kStill | ImGuiWindowFlags_NoInputs);
    const FrameTimes& times = ui.state.frameTimes;
    ImGui::Text("%.1f frames per second", times.mean > 0.0 ? 1000.0 / times.mean : 0.0);
    ImGui::Text("%.1f ms mean, %.1f ms worst", times.mean, times.worst);
    ImGui::TextDisabled("over the last two seconds");
    ImGui::Text("%.1f ms beside drawing", times.between);
    std::size_t joints = 0;
    for (const ActorState& actor : ui.state.actors)
        joints += actor.joints;
    ImGui::Text("%zu actors, %zu joints", ui.state.actors.size(), joints);
    ImGui::End();
    ImGui::PopStyleVar();
}

}  // namespace KivPlayer
