#include "apps/kivplayer/window/ui/contactcolours.h"

#include <imgui.h>

#include "apps/kivplayer/window/ui/panels.h"

namespace KivPlayer {

namespace {

/// Whether the widget that was drawn last lies inside the part of a list that is seen.
bool isSeenWhole()
{
    const float top = ImGui::GetWindowPos().y;
    return ImGui::GetItemRectMin().y >= top && ImGui::GetItemRectMax().y <= top + ImGui::GetWindowHeight();
}

}  // namespace

void ContactColours::draw(const UiContext& ui)
{
    ImGui::SetNextItemWidth(-1);
    if (ImGui::BeginCombo("##joint", m_joint.empty() ? "Joint" : m_joint.c_str())) {
        for (const std::string& name : ui.state.jointNames) {
            if (ImGui::Selectable(name.c_str(), name == m_joint))
                m_joint = name;
            if (isSeenWhole())
                ui.note("joint:" + name);
        }
        ImGui::EndCombo();
    } else {
        ui.note("contactJoint");
    }
    ImGui::ColorEdit3("##colour", m_colour);
    if (ImGui::Button("Paint") && !m_joint.empty())
        ui.ask(PaintContact{m_joint, {m_colour[0], m_colour[1], m_colour[2]}});
    ui.note("paint");
    tooltip("Mark this joint in this colour, on every actor");
}

}  // namespace KivPlayer
