#include "apps/kivplayer/window/ui/actorlist.h"

#include <imgui.h>
#include <imgui_stdlib.h>

#include <filesystem>

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/window/ui/panels.h"

namespace KivPlayer {

namespace {

constexpr float kMore = 34.0f;  // width of the button that opens an actor's details

}  // namespace

void ActorList::draw(const UiContext& ui)
{
    for (const ActorState& one : ui.state.actors) {
        ImGui::PushID(static_cast<int>(one.index));
        actor(ui, one);
        ImGui::PopID();
    }
    ImGui::SetNextItemWidth(-1);
    if (ImGui::InputTextWithHint("##file", "Add a motion: path, then Enter", &m_file,
                                 ImGuiInputTextFlags_EnterReturnsTrue) &&
        !m_file.empty()) {
        ui.ask(LoadFile{m_file});
        m_file.clear();
    }
    ui.note("load");
    tooltip("Or drop files on the window");
}

void ActorList::actor(const UiContext& ui, const ActorState& actor)
{
    const unsigned index = actor.index;
    bool visible = actor.visible;
    if (ImGui::Checkbox("##visible", &visible))
        ui.ask(ShowActor{index, visible});
    ui.note("visible" + actor.id());
    tooltip("Shown");
    ImGui::SameLine();
    name(ui, actor);
    ImGui::SameLine();
    const bool open = m_open.count(index) > 0;
    if (ImGui::ArrowButton("##more", open ? ImGuiDir_Up : ImGuiDir_Down)) {
        if (open)
            m_open.erase(index);
        else
            m_open.insert(index);
        m_replacement.clear();
    }
    ui.note("more" + actor.id());
    tooltip("File, follow, start, replace, remove");
    if (open)
        details(ui, actor);
}

void ActorList::name(const UiContext& ui, const ActorState& actor)
{
    const auto typed = m_typed.find(actor.index);
    std::string name = typed != m_typed.end() ? typed->second : actor.name;
    ImGui::SetNextItemWidth(-kMore);
    const bool entered = ImGui::InputText(
        "##name", &name, ImGuiInputTextFlags_EnterReturnsTrue | ImGuiInputTextFlags_AutoSelectAll);
    ui.note("name" + actor.id());
    tooltip("Name; Enter changes it");
    if (entered && !name.empty() && name != actor.name)
        ui.ask(RenameActor{actor.index, name});
    if (ImGui::IsItemActive() && !entered)
        m_typed[actor.index] = name;
    else
        m_typed.erase(actor.index);
}

void ActorList::details(const UiContext& ui, const ActorState& actor)
{
    const std::string file = std::filesystem::path(actor.file).filename().string();
    ImGui::PushTextWrapPos();
    ImGui::TextDisabled("%s, %zu frames", file.c_str(), actor.frames);
    ImGui::PopTextWrapPos();
    tooltip(actor.file.c_str());
    buttons(ui, actor);
    offset(ui, actor);
    replacement(ui, actor);
    ImGui::Spacing();
}

void ActorList::buttons(const UiContext& ui, const ActorState& actor)
{
    const bool followed = ui.state.followed == actor.index;
    if (ImGui::Button(followed ? "Let go" : "Follow"))
        ui.ask(FollowActor{followed ? std::nullopt : std::optional<unsigned>(actor.index)});
    ui.note("follow" + actor.id());
    ImGui::SameLine();
    if (ImGui::Button("Reload"))
        ui.ask(ReplaceActor{actor.index, actor.file});
    ui.note("reload" + actor.id());
    tooltip("Read the file again in place of this actor");
    ImGui::SameLine();
    if (ImGui::Button("Remove")) {
        m_open.erase(actor.index);
        ui.ask(RemoveActor{actor.index});
    }
    ui.note("remove" + actor.id());
}

void ActorList::replacement(const UiContext& ui, const ActorState& actor)
{
    ImGui::SetNextItemWidth(-1);
    if (ImGui::InputTextWithHint("##replace", "Replace by: path, then Enter", &m_replacement,
                                 ImGuiInputTextFlags_EnterReturnsTrue) &&
        !m_replacement.empty()) {
        ui.ask(ReplaceActor{actor.index, m_replacement});
        m_replacement.clear();
    }
    ui.note("replace" + actor.id());
}

void ActorList::offset(const UiContext& ui, const ActorState& actor)
{
    double seconds = actor.offset;
    const double least = -kMaxOffset;
    ImGui::AlignTextToFramePadding();
    ImGui::TextDisabled("Starts at");
    ImGui::SameLine();
    ImGui::SetNextItemWidth(-1);
    if (ImGui::DragScalar("##offset", ImGuiDataType_Double, &seconds, 0.01f, &least, &kMaxOffset, "%.3f s",
                          ImGuiSliderFlags_AlwaysClamp))
        ui.ask(OffsetActor{actor.index, seconds});
    ui.note("offset" + actor.id());
    tooltip("On the clock; drag, or type after a double click");
}

}  // namespace KivPlayer
