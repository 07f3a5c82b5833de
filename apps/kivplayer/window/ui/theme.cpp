#include "apps/kivplayer/window/ui/theme.h"

#include <filesystem>

namespace KivPlayer::Theme {

namespace {

const ImVec4 kAccent(0.95f, 0.62f, 0.25f, 1.0f);
const ImVec4 kText(0.90f, 0.92f, 0.94f, 1.0f);
const ImVec4 kFaint(0.58f, 0.62f, 0.67f, 1.0f);
const ImVec4 kTrack(0.24f, 0.27f, 0.31f, 1.0f);
const ImVec4 kWarning(0.98f, 0.48f, 0.40f, 1.0f);

ImVec4 grey(float level, float alpha = 1.0f)
{
    return {level * 0.92f, level, level * 1.10f, alpha};
}

void setColours(ImVec4* colours)
{
    colours[ImGuiCol_Text] = kText;
    colours[ImGuiCol_TextDisabled] = kFaint;
    colours[ImGuiCol_WindowBg] = grey(0.105f, 0.95f);
    colours[ImGuiCol_PopupBg] = grey(0.125f, 0.98f);
    colours[ImGuiCol_ChildBg] = grey(0.075f, 0.60f);
    colours[ImGuiCol_Border] = grey(0.22f, 0.60f);
    colours[ImGuiCol_FrameBg] = grey(0.175f);
    colours[ImGuiCol_FrameBgHovered] = grey(0.22f);
    colours[ImGuiCol_FrameBgActive] = grey(0.26f);
    colours[ImGuiCol_Button] = grey(0.19f);
    colours[ImGuiCol_ButtonHovered] = grey(0.26f);
    colours[ImGuiCol_ButtonActive] = grey(0.32f);
    colours[ImGuiCol_Header] = grey(0.155f);
    colours[ImGuiCol_HeaderHovered] = grey(0.21f);
    colours[ImGuiCol_HeaderActive] = grey(0.25f);
    colours[ImGuiCol_CheckMark] = kAccent;
    colours[ImGuiCol_SliderGrab] = kAccent;
    colours[ImGuiCol_SliderGrabActive] = kAccent;
    colours[ImGuiCol_TextSelectedBg] = ImVec4(0.95f, 0.62f, 0.25f, 0.35f);
    colours[ImGuiCol_Separator] = grey(0.22f);
    colours[ImGuiCol_ScrollbarBg] = grey(0.08f, 0.0f);
    colours[ImGuiCol_ScrollbarGrab] = grey(0.26f);
    colours[ImGuiCol_Tab] = grey(0.155f);
    colours[ImGuiCol_TabHovered] = grey(0.26f);
    colours[ImGuiCol_TabActive] = grey(0.24f);
    colours[ImGuiCol_NavHighlight] = kAccent;
    colours[ImGuiCol_TableHeaderBg] = grey(0.155f);
    colours[ImGuiCol_TableRowBgAlt] = grey(0.20f, 0.25f);
}

}  // namespace

ImU32 accent()
{
    return ImGui::GetColorU32(kAccent);
}

ImU32 track()
{
    return ImGui::GetColorU32(kTrack);
}

ImU32 text()
{
    return ImGui::GetColorU32(kText);
}

ImU32 faint()
{
    return ImGui::GetColorU32(kFaint);
}

ImU32 warning()
{
    return ImGui::GetColorU32(kWarning);
}

void apply(const std::string& fontFile)
{
    ImGuiStyle& style = ImGui::GetStyle();
    style = ImGuiStyle();
    style.WindowPadding = {14, 12};
    style.FramePadding = {8, 5};
    style.ItemSpacing = {8, 7};
    style.ItemInnerSpacing = {7, 5};
    style.ScrollbarSize = 10;
    style.WindowRounding = 0;
    style.FrameRounding = 4;
    style.PopupRounding = 6;
    style.ChildRounding = 4;
    style.GrabRounding = 4;
    style.ScrollbarRounding = 5;
    style.WindowBorderSize = 0;
    style.FrameBorderSize = 0;
    setColours(style.Colors);

    ImFontAtlas& fonts = *ImGui::GetIO().Fonts;
    static const ImWchar ranges[] = {0x0020, 0x024F, 0x0370, 0x03FF, 0x0400, 0x052F, 0x2010, 0x2026, 0};
    std::error_code problem;
    if (std::filesystem::is_regular_file(fontFile, problem))
        fonts.AddFontFromFileTTF(fontFile.c_str(), kFontSize, nullptr, ranges);
    if (fonts.Fonts.empty())
        fonts.AddFontDefault();
}

}  // namespace KivPlayer::Theme
