#include "apps/kivplayer/window/ui/logview.h"

#include <imgui.h>

#include "apps/kivplayer/window/ui/panels.h"
#include "apps/kivplayer/window/ui/theme.h"

namespace KivPlayer {

void LogView::draw(const UiContext& ui)
{
    std::size_t errors = 0;
    for (const LogLine& line : ui.state.log)
        errors += line.isError ? 1 : 0;
    if (errors > m_errors)
        ImGui::SetNextItemOpen(true);
    m_errors = errors;
    if (!section("Log", false))
        return;
    ImGui::BeginChild("##lines", {0, 190}, false, 0);
    for (const LogLine& line : ui.state.log) {
        ImGui::PushStyleColor(ImGuiCol_Text, line.isError ? Theme::warning() : Theme::text());
        ImGui::TextWrapped("%s", line.text.c_str());
        ImGui::PopStyleColor();
    }
    if (ui.state.log.size() != m_lines)
        ImGui::SetScrollHereY(1.0f);
    m_lines = ui.state.log.size();
    ImGui::EndChild();
}

}  // namespace KivPlayer
