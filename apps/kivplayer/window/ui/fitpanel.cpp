#include <imgui.h>

#include <optional>
#include <string>

#include "apps/kivplayer/window/ui/panels.h"
#include "apps/kivplayer/window/ui/theme.h"

namespace KivPlayer {

namespace {

constexpr float kWidth = 520.0f;
constexpr float kNumber = 62.0f;

/// Stands at the right of the next column.
void atRight(const char* text)
{
    ImGui::TableNextColumn();
    const float room = ImGui::GetContentRegionAvail().x - ImGui::CalcTextSize(text).x;
    ImGui::SetCursorPosX(ImGui::GetCursorPosX() + room);
    ImGui::TextUnformatted(text);
}

/// A dash where there is none.
void number(const std::optional<double>& value, const char* format)
{
    char text[32] = "\xE2\x80\x93";
    if (value)
        std::snprintf(text, sizeof text, format, *value);
    atRight(text);
}

void segments(const ActorFit& actor)
{
    const ImGuiTableFlags flags = ImGuiTableFlags_RowBg | ImGuiTableFlags_ScrollY | ImGuiTableFlags_PadOuterX;
    if (!ImGui::BeginTable("##segments", 4, flags, {0, -1}))
        return;
    ImGui::TableSetupScrollFreeze(0, 1);
    ImGui::TableSetupColumn("Segment");
    ImGui::TableSetupColumn("Avatar", ImGuiTableColumnFlags_WidthFixed, kNumber);
    ImGui::TableSetupColumn("Actor", ImGuiTableColumnFlags_WidthFixed, kNumber);
    ImGui::TableSetupColumn("Factor", ImGuiTableColumnFlags_WidthFixed, kNumber);
    ImGui::TableNextRow(ImGuiTableRowFlags_Headers);
    ImGui::TableNextColumn();
    ImGui::TextUnformatted("Segment");
    for (const char* title : {"Avatar", "Actor", "Factor"})
        atRight(title);
    for (const ActorFit::Segment& segment : actor.segments) {
        ImGui::TableNextRow();
        ImGui::TableNextColumn();
        ImGui::TextUnformatted(segment.key.c_str());
        number(segment.avatarLength, "%.2f");
        number(segment.actorLength, "%.2f");
        number(segment.factor, "%.3f");
    }
    ImGui::EndTable();
}

void findings(const ActorFit& actor)
{
    const std::size_t matched = actor.matched.size();
    ImGui::TextDisabled("%zu of %zu joints have a piece of the avatar; lengths in scene units", matched,
                        matched + actor.unmatched.size());
    for (const std::string& warning : actor.warnings) {
        ImGui::PushStyleColor(ImGuiCol_Text, Theme::warning());
        ImGui::TextWrapped("%s", warning.c_str());
        ImGui::PopStyleColor();
    }
    if (actor.unmatched.empty() || !ImGui::TreeNode("Joints without a piece"))
        return;
    for (const KivReader::ProfileRecord::Unmatched& joint : actor.unmatched) {
        ImGui::BulletText("%s", joint.joint.c_str());
        if (!joint.nearest.empty()) {
            ImGui::SameLine();
            ImGui::TextDisabled("nearest: %s", joint.nearest.front().c_str());
        }
    }
    ImGui::TreePop();
}

}  // namespace

void drawFitReport(const UiContext& ui)
{
    const float tall = static_cast<float>(ui.state.area.windowHeight - kBarHeight) - 32;
    ImGui::SetNextWindowPos({static_cast<float>(ui.state.area.windowWidth) - 16, 16}, ImGuiCond_Always,
                            {1.0f, 0.0f});
    ImGui::SetNextWindowSize({kWidth, tall});
    ImGui::PushStyleVar(ImGuiStyleVar_WindowRounding, 8.0f);
    ImGui::Begin("##fit", nullptr, ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove);
    ui.noteFloating("fitReport");
    ImGui::TextUnformatted("Fit report");
    if (ImGui::BeginTabBar("##actors")) {
        for (const ActorFit& actor : ui.state.fitReport.actors) {
            const std::string label = actor.name + "##" + actor.actorId;
            if (!ImGui::BeginTabItem(label.c_str()))
                continue;
            findings(actor);
            segments(actor);
            ImGui::EndTabItem();
        }
        ImGui::EndTabBar();
    }
    ImGui::End();
    ImGui::PopStyleVar();
}

}  // namespace KivPlayer
