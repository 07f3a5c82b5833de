#include "apps/kivplayer/window/ui/widgetlog.h"

#include <imgui.h>

namespace KivPlayer {

void WidgetLog::reset()
{
    m_rects.clear();
    m_focused.clear();
}

void WidgetLog::note(const std::string& name)
{
    const ImVec2 from = ImGui::GetItemRectMin();
    const ImVec2 to = ImGui::GetItemRectMax();
    m_rects[name] = {from.x, from.y, to.x - from.x, to.y - from.y};
    if (ImGui::IsItemFocused())
        m_focused = name;
}

void WidgetLog::notePanel(const std::string& name)
{
    const ImVec2 corner = ImGui::GetWindowPos();
    const ImVec2 size = ImGui::GetWindowSize();
    m_rects[name] = {corner.x, corner.y, size.x, size.y};
}

}  // namespace KivPlayer
