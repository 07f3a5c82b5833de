#include <imgui.h>

#include "apps/kivplayer/window/ui/panels.h"
#include "apps/kivplayer/window/ui/theme.h"

namespace KivPlayer {

namespace {

constexpr float kSecond = 130.0f;  // where a row's second box stands

/// Three numbers in a row that can be dragged and typed.
bool vectorRow(const char* label, osg::Vec3d& vector, float step, const char* format)
{
    float values[3] = {static_cast<float>(vector.x()), static_cast<float>(vector.y()),
                       static_cast<float>(vector.z())};
    ImGui::TextDisabled("%s", label);
    ImGui::SetNextItemWidth(-1);
    ImGui::PushID(label);
    const bool changed = ImGui::DragFloat3("##values", values, step, 0.0f, 0.0f, format);
    ImGui::PopID();
    if (changed)
        vector.set(static_cast<double>(values[0]), static_cast<double>(values[1]),
                   static_cast<double>(values[2]));
    return changed;
}

}  // namespace

void drawProps(const UiContext& ui)
{
    for (const PropState& one : ui.state.props) {
        ImGui::PushID(one.fullName.c_str());
        ImGui::TextUnformatted(one.name.c_str());
        if (one.dragged) {
            ImGui::SameLine();
            ImGui::PushStyleColor(ImGuiCol_Text, Theme::accent());
            ImGui::TextUnformatted("being dragged");
            ImGui::PopStyleColor();
        }
        bool move = one.draggerShown;
        if (ImGui::Checkbox("Dragger", &move))
            ui.ask(ShowDragger{one.fullName, move});
        ui.note("dragger:" + one.fullName);
        ImGui::SameLine(kSecond);
        bool contact = one.contactDraggerShown;
        if (ImGui::Checkbox("Contact point", &contact))
            ui.ask(ShowContactDragger{one.fullName, contact});
        ui.note("contactDragger:" + one.fullName);
        PropState moved = one;
        bool changed = vectorRow("Position, cm", moved.position, 0.1f, "%.2f");
        ui.note("position:" + one.fullName);
        osg::Vec3d angles = one.angles();
        if (vectorRow("Rotation about x, y, z, degrees", angles, 0.5f, "%.1f")) {
            moved.turnTo(angles);
            changed = true;
        }
        ImGui::TextDisabled("Contact point %.2f, %.2f, %.2f cm", one.contactPoint.x(), one.contactPoint.y(),
                            one.contactPoint.z());
        if (changed)
            ui.ask(PoseProp{one.fullName, moved.position, moved.rotation});
        ImGui::Spacing();
        ImGui::PopID();
    }
}

}  // namespace KivPlayer
