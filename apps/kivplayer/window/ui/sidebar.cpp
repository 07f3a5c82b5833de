#include <imgui.h>
#include <imgui_stdlib.h>

#include <filesystem>

#include "apps/kivplayer/window/ui/panels.h"
#include "apps/kivplayer/window/ui/theme.h"

namespace KivPlayer {

namespace {

constexpr float kSecondColumn = 150.0f;  // where a row's second box stands
constexpr float kMore = 34.0f;           // width of the button that opens an actor's details

/// Whether the control that was described last lies inside the part of a list that is seen.
bool isSeenWhole()
{
    const float top = ImGui::GetWindowPos().y;
    return ImGui::GetItemRectMin().y >= top && ImGui::GetItemRectMax().y <= top + ImGui::GetWindowHeight();
}

}  // namespace

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

void Sidebar::describe(Desk& desk, int height)
{
    ImGui::SetNextWindowPos({0, 0});
    ImGui::SetNextWindowSize({static_cast<float>(kSidebarWidth), static_cast<float>(height - kBarHeight)});
    ImGui::Begin(kSidebarWindow, nullptr,
                 ImGuiWindowFlags_NoTitleBar | ImGuiWindowFlags_NoResize | ImGuiWindowFlags_NoMove |
                     ImGuiWindowFlags_NoBringToFrontOnFocus);
    if (section("Actors", true))
        actors(desk);
    if (section("Show", true))
        overlays(desk);
    if (!desk.props.all().empty() && section("Props", true))
        describeProps(desk);
    const bool painting = section("Contact colours", false);
    notePlace(desk, "contactColours");
    if (painting)
        contactColours(desk);
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
    if (ImGui::InputTextWithHint("##file", "Add a motion: path, then Enter", &m_file,
                                 ImGuiInputTextFlags_EnterReturnsTrue) &&
        !m_file.empty()) {
        desk.load(m_file);
        m_file.clear();
    }
    notePlace(desk, "load");
    tip("Or drop files on the window");
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
    name(desk, actor);
    ImGui::SameLine();
    const bool open = m_open.count(index) > 0;
    if (ImGui::ArrowButton("##more", open ? ImGuiDir_Up : ImGuiDir_Down)) {
        if (open)
            m_open.erase(index);
        else
            m_open.insert(index);
        m_replacement.clear();
    }
    notePlace(desk, "more" + actor.id());
    tip("File, follow, start, replace, remove");
    if (open)
        details(desk, actor);
}

void Sidebar::name(Desk& desk, const LoadedActor& actor)
{
    const auto typed = m_typed.find(actor.index);
    std::string name = typed != m_typed.end() ? typed->second : actor.name;
    ImGui::SetNextItemWidth(-kMore);
    const bool entered = ImGui::InputText(
        "##name", &name, ImGuiInputTextFlags_EnterReturnsTrue | ImGuiInputTextFlags_AutoSelectAll);
    notePlace(desk, "name" + actor.id());
    tip("Name; Enter changes it");
    if (entered && !name.empty() && name != actor.name)
        desk.rename(actor.index, name);
    if (ImGui::IsItemActive() && !entered)
        m_typed[actor.index] = name;
    else
        m_typed.erase(actor.index);
}

void Sidebar::details(Desk& desk, const LoadedActor& actor)
{
    const unsigned index = actor.index;
    const std::string file = std::filesystem::path(actor.file).filename().string();
    ImGui::PushTextWrapPos();
    ImGui::TextDisabled("%s, %zu frames", file.c_str(), actor.frames());
    ImGui::PopTextWrapPos();
    tip(actor.file.c_str());
    const bool followed = desk.followed() == index;
    if (ImGui::Button(followed ? "Let go" : "Follow"))
        desk.follow(followed ? std::nullopt : std::optional<unsigned>(index));
    notePlace(desk, "follow" + actor.id());
    ImGui::SameLine();
    if (ImGui::Button("Reload"))
        desk.replace(index, actor.file);
    notePlace(desk, "reload" + actor.id());
    tip("Read the file again in place of this actor");
    ImGui::SameLine();
    const bool gone = ImGui::Button("Remove");
    notePlace(desk, "remove" + actor.id());
    offset(desk, actor);
    ImGui::SetNextItemWidth(-1);
    if (ImGui::InputTextWithHint("##replace", "Replace by: path, then Enter", &m_replacement,
                                 ImGuiInputTextFlags_EnterReturnsTrue) &&
        !m_replacement.empty()) {
        desk.replace(index, m_replacement);
        m_replacement.clear();
    }
    notePlace(desk, "replace" + actor.id());
    ImGui::Spacing();
    if (gone) {
        m_open.erase(index);
        desk.remove(index);
    }
}

void Sidebar::offset(Desk& desk, const LoadedActor& actor)
{
    double seconds = actor.offset;
    const double least = -kMaxOffset;
    ImGui::AlignTextToFramePadding();
    ImGui::TextDisabled("Starts at");
    ImGui::SameLine();
    ImGui::SetNextItemWidth(-1);
    if (ImGui::DragScalar("##offset", ImGuiDataType_Double, &seconds, 0.01f, &least, &kMaxOffset, "%.3f s",
                          ImGuiSliderFlags_AlwaysClamp))
        desk.setOffset(actor.index, seconds);
    notePlace(desk, "offset" + actor.id());
    tip("On the clock; drag, or type after a double click");
}

void Sidebar::overlays(Desk& desk)
{
    const ShownNow shown = desk.shown();
    const auto box = [&desk](const char* label, const char* place, bool on, Action action, bool second) {
        if (second)
            ImGui::SameLine(kSecondColumn);
        bool value = on;
        if (ImGui::Checkbox(label, &value))
            desk.perform(action);
        notePlace(desk, place);
    };
    box("Names", "names", shown.names, Action::Names, false);
    box("Contacts", "contacts", shown.contacts, Action::Contacts, true);
    box("Mass centre", "com", shown.centreOfMass, Action::CentreOfMass, false);
    box("Bones", "skeleton", shown.skeleton, Action::Skeleton, true);
    box("Grid", "grid", shown.grid, Action::Grid, false);
    box("Shadows", "shadows", desk.shadows(), Action::Shadows, true);
    box("Fit report", "fit", shown.fit, Action::Fit, false);
    box("Statistics", "statistics", shown.statistics, Action::Statistics, true);
}

void Sidebar::contactColours(Desk& desk)
{
    ImGui::SetNextItemWidth(-1);
    if (ImGui::BeginCombo("##joint", m_contactJoint.empty() ? "Joint" : m_contactJoint.c_str())) {
        std::set<std::string> names;
        for (const auto& [index, one] : desk.actors())
            for (const DressedActor::Joint& joint : one.dressed.joints())
                names.insert(joint.name);
        for (const std::string& name : names) {
            if (ImGui::Selectable(name.c_str(), name == m_contactJoint))
                m_contactJoint = name;
            if (isSeenWhole())
                notePlace(desk, "joint:" + name);
        }
        ImGui::EndCombo();
    } else {
        notePlace(desk, "contactJoint");
    }
    ImGui::ColorEdit3("##colour", m_contactColour);
    if (ImGui::Button("Paint") && !m_contactJoint.empty())
        desk.paintContact(m_contactJoint, m_contactColour);
    notePlace(desk, "paint");
    tip("Mark this joint in this colour, on every actor");
}

/// Opens by itself where something went wrong.
void Sidebar::log(Desk& desk)
{
    std::size_t errors = 0;
    for (const LogLine& line : desk.log())
        errors += line.isError ? 1 : 0;
    if (errors > m_logErrors)
        ImGui::SetNextItemOpen(true);
    m_logErrors = errors;
    if (!section("Log", false))
        return;
    ImGui::BeginChild("##lines", {0, 190}, false, 0);
    for (const LogLine& line : desk.log()) {
        ImGui::PushStyleColor(ImGuiCol_Text, line.isError ? Theme::warning() : Theme::text());
        ImGui::TextWrapped("%s", line.text.c_str());
        ImGui::PopStyleColor();
    }
    if (desk.log().size() != m_logLines)
        ImGui::SetScrollHereY(1.0f);
    m_logLines = desk.log().size();
    ImGui::EndChild();
}

}  // namespace KivPlayer
