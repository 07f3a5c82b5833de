#include <imgui.h>
#include <imgui_stdlib.h>

#include <cstdio>
#include <filesystem>

#include "window/panels.h"
#include "window/theme.h"

namespace KivPlayer {

namespace {

constexpr float kNumbers = 168.0f;  // where a row's numbers start

bool section(const char* title, bool open)
{
    ImGui::Spacing();
    return ImGui::CollapsingHeader(title, open ? ImGuiTreeNodeFlags_DefaultOpen : 0);
}

void tip(const char* text)
{
    if (ImGui::IsItemHovered())
        ImGui::SetTooltip("%s", text);
}

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

void Sidebar::describe(Desk& desk, int height)
{
    ImGui::SetNextWindowPos({0, 0});
    ImGui::SetNextWindowSize({static_cast<float>(kSidebarWidth), static_cast<float>(height - kBarHeight)});
    ImGui::Begin("##sidebar", nullptr,
                 ImGuiWindowFlags_NoTitleBar | ImGuiWindowFlags_NoResize | ImGuiWindowFlags_NoMove |
                     ImGuiWindowFlags_NoBringToFrontOnFocus);
    if (section("Actors", true))
        actors(desk);
    if (section("Show", true))
        overlays(desk);
    if (!desk.props.all().empty() && section("Props", true))
        props(desk);
    if (section("Contact colours", false))
        contactColours(desk);
    if (section("Fit", false))
        fit(desk);
    if (section("Log", false))
        log(desk);
    ImGui::End();
}

void Sidebar::actors(Desk& desk)
{
    std::vector<const LoadedActor*> all;
    for (const auto& [index, one] : desk.actors())
        all.push_back(&one);
    for (const LoadedActor* one : all) {
        ImGui::PushID(static_cast<int>(one->index));
        actor(desk, *one);
        ImGui::PopID();
    }
    ImGui::SetNextItemWidth(-1);
    if (ImGui::InputTextWithHint("##file", "Load a motion: path, then Enter", &m_file,
                                 ImGuiInputTextFlags_EnterReturnsTrue) &&
        !m_file.empty()) {
        desk.load(m_file);
        m_file.clear();
    }
    notePlace(desk, "load");
}

void Sidebar::actor(Desk& desk, const LoadedActor& actor)
{
    const unsigned index = actor.index;
    bool visible = desk.isVisible(index);
    if (ImGui::Checkbox("##visible", &visible))
        desk.setVisible(index, visible);
    notePlace(desk, "visible" + actor.id());
    tip("Shown");
    ImGui::SameLine();
    const auto typed = m_typed.find(index);
    std::string name = typed != m_typed.end() ? typed->second : actor.name;
    ImGui::SetNextItemWidth(-1);
    const bool entered = ImGui::InputText(
        "##name", &name, ImGuiInputTextFlags_EnterReturnsTrue | ImGuiInputTextFlags_AutoSelectAll);
    notePlace(desk, "name" + actor.id());
    tip("Name; Enter changes it");
    if (entered && !name.empty() && name != actor.name)
        desk.rename(index, name);
    if (ImGui::IsItemActive() && !entered)
        m_typed[index] = name;
    else
        m_typed.erase(index);

    const std::string file = std::filesystem::path(actor.file).filename().string();
    ImGui::PushTextWrapPos();
    ImGui::TextDisabled("%s, %zu frames", file.c_str(), actor.frames());
    ImGui::PopTextWrapPos();
    tip(actor.file.c_str());
    const bool followed = desk.followed() == index;
    if (ImGui::Button(followed ? "Let go" : "Follow"))
        desk.follow(followed ? std::nullopt : std::optional<unsigned>(index));
    ImGui::SameLine();
    if (ImGui::Button("Reload"))
        desk.reload(index);
    tip("Read the file again in place of this actor");
    ImGui::SameLine();
    const bool gone = ImGui::Button("Remove");
    notePlace(desk, "remove" + actor.id());
    ImGui::Spacing();
    if (gone)
        desk.remove(index);
}

void Sidebar::overlays(Desk& desk)
{
    const ShownNow shown = desk.shown();
    const auto box = [&desk](const char* label, const char* place, bool on, Action action) {
        bool value = on;
        if (ImGui::Checkbox(label, &value))
            desk.perform(action);
        notePlace(desk, place);
    };
    box("Names", "names", shown.names, Action::Names);
    ImGui::SameLine(kNumbers);
    box("Contacts", "contacts", shown.contacts, Action::Contacts);
    box("Centre of mass", "com", shown.centreOfMass, Action::CentreOfMass);
    ImGui::SameLine(kNumbers);
    box("Grid", "grid", shown.grid, Action::Grid);
}

void Sidebar::props(Desk& desk)
{
    for (WatchedProps& one : desk.props.all()) {
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
            desk.showDragger(one, move);
        notePlace(desk, "dragger:" + one.fullName);
        ImGui::SameLine(120);
        bool contact = one.contactDraggerShown;
        if (ImGui::Checkbox("Contact point", &contact))
            desk.showContactDragger(one, contact);
        notePlace(desk, "contactDragger:" + one.fullName);
        bool moved = vectorRow("Position, cm", one.position, 0.1f, "%.2f");
        notePlace(desk, "position:" + one.fullName);
        osg::Vec3d angles = one.angles();
        if (vectorRow("Rotation about x, y, z, degrees", angles, 0.5f, "%.1f")) {
            one.turnTo(angles);
            moved = true;
        }
        ImGui::TextDisabled("Contact point %.2f, %.2f, %.2f cm", one.contactPoint.x(), one.contactPoint.y(),
                            one.contactPoint.z());
        if (moved)
            desk.place(one);
        ImGui::Spacing();
        ImGui::PopID();
    }
}

void Sidebar::contactColours(Desk& desk)
{
    ImGui::SetNextItemWidth(-1);
    if (ImGui::BeginCombo("##joint", m_contactJoint.empty() ? "Joint" : m_contactJoint.c_str())) {
        std::set<std::string> names;
        for (const auto& [index, one] : desk.actors())
            for (const DressedActor::Joint& joint : one.dressed.joints())
                names.insert(joint.name);
        for (const std::string& name : names)
            if (ImGui::Selectable(name.c_str(), name == m_contactJoint))
                m_contactJoint = name;
        ImGui::EndCombo();
    }
    ImGui::ColorEdit3("##colour", m_contactColour);
    if (ImGui::Button("Paint") && !m_contactJoint.empty())
        desk.paintContact(m_contactJoint, m_contactColour);
    tip("Mark this joint in this colour, on every actor");
}

void Sidebar::fit(Desk& desk)
{
    for (const auto& actor : desk.fitReport().at("actors")) {
        ImGui::TextUnformatted(actor.at("name").get<std::string>().c_str());
        ImGui::TextDisabled("%zu of %zu joints matched", actor.at("matched").size(),
                            actor.at("matched").size() + actor.at("unmatched").size());
        ImGui::PushID(actor.at("actorId").dump().c_str());
        if (ImGui::BeginTable("##segments", 2, ImGuiTableFlags_RowBg | ImGuiTableFlags_ScrollY, {0, 200})) {
            ImGui::TableSetupColumn("Segment");
            ImGui::TableSetupColumn("Factor", ImGuiTableColumnFlags_WidthFixed, 56);
            ImGui::TableHeadersRow();
            for (const auto& segment : actor.at("segments")) {
                ImGui::TableNextRow();
                ImGui::TableNextColumn();
                ImGui::TextUnformatted(segment.at("key").get<std::string>().c_str());
                ImGui::TableNextColumn();
                if (segment.at("factor").is_number())
                    ImGui::Text("%.3f", segment.at("factor").get<double>());
            }
            for (const auto& joint : actor.at("unmatched")) {
                ImGui::TableNextRow();
                ImGui::TableNextColumn();
                ImGui::TextDisabled("%s", joint.at("joint").get<std::string>().c_str());
                ImGui::TableNextColumn();
                ImGui::TextDisabled("none");
            }
            ImGui::EndTable();
        }
        for (const auto& warning : actor.at("warnings"))
            ImGui::TextWrapped("%s", warning.get<std::string>().c_str());
        ImGui::PopID();
    }
}

void Sidebar::log(Desk& desk)
{
    ImGui::BeginChild("##lines", {0, 190}, false, 0);
    for (const std::string& line : desk.log())
        ImGui::TextWrapped("%s", line.c_str());
    if (desk.log().size() != m_logLines)
        ImGui::SetScrollHereY(1.0f);
    m_logLines = desk.log().size();
    ImGui::EndChild();
}

}  // namespace KivPlayer
