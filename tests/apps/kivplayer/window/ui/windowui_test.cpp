#include "apps/kivplayer/window/ui/windowui.h"

#include <gtest/gtest.h>
#include <imgui.h>

using namespace KivPlayer;

namespace {

/// The panels in a context of their own, which draws nothing.
class WindowUiTest : public testing::Test
{
protected:
    WindowUiTest()
    {
        ImGui::CreateContext();
        ImGui::GetIO().IniFilename = nullptr;
        ImGui::GetIO().DisplaySize = {1280, 800};
        ImGui::GetIO().Fonts->Build();
        m_state.area = {1280, 800, 300, 92};
    }
    ~WindowUiTest() override { ImGui::DestroyContext(); }

    Requests draw()
    {
        Requests requests;
        ImGui::GetIO().DeltaTime = 1.0f / 60.0f;
        ImGui::NewFrame();
        m_ui.draw(m_state, requests);
        ImGui::Render();
        return requests;
    }

    bool isDrawn(const std::string& widget) const { return m_ui.widgets().rects().count(widget) > 0; }

    /// What a click on a widget asks for.
    Requests click(const std::string& widget)
    {
        draw();
        draw();
        const Rect rect = m_ui.widgets().rects().at(widget);
        ImGui::GetIO().MousePos = {rect.x + rect.width / 2, rect.y + rect.height / 2};
        draw();
        ImGui::GetIO().MouseDown[0] = true;
        Requests all = draw();
        ImGui::GetIO().MouseDown[0] = false;
        for (const Request& request : draw())
            all.push_back(request);
        return all;
    }

    WindowState m_state;
    WindowUi m_ui;
};

TEST_F(WindowUiTest, asksForNothingByItself)
{
    EXPECT_TRUE(draw().empty());
    EXPECT_TRUE(draw().empty());
}

TEST_F(WindowUiTest, asksForTheOverlayWhoseBoxIsClicked)
{
    for (const OverlayEntry& entry : overlayTable()) {
        draw();
        EXPECT_EQ(isDrawn(entry.name) && entry.overlay != Overlay::Help, entry.isInPanel) << entry.name;
        if (!entry.isInPanel)
            continue;
        const Requests asked = click(entry.name);
        ASSERT_EQ(asked.size(), 1u) << entry.name;
        EXPECT_EQ(std::get<ToggleOverlay>(asked[0]).overlay, entry.overlay);
    }
}

TEST_F(WindowUiTest, listsActorsAndHidesTheOneThatIsClicked)
{
    m_state.actors.push_back({0, "Ann", "/a/walk.bvh", 100, 50, 0.0, true});
    m_state.actors.push_back({3, "Ben", "/a/run.bvh", 100, 50, 0.0, true});
    const Requests asked = click("visible3");
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_EQ(std::get<ShowActor>(asked[0]).actor, 3u);
    EXPECT_FALSE(std::get<ShowActor>(asked[0]).shown);
}

TEST_F(WindowUiTest, goesToTheFrameThatIsClickedOnTheTimeLine)
{
    m_state.transport.setMotion(10.0, 0.1);
    const Requests asked = click("timeline");
    ASSERT_FALSE(asked.empty());
    EXPECT_NEAR(std::get<SetTime>(asked[0]).seconds, 5.0, 1e-6);
}

TEST_F(WindowUiTest, keepsTheMouseFromTheSceneBehindTheFitReport)
{
    draw();
    EXPECT_TRUE(m_ui.floating().empty());
    m_state.shown.set(Overlay::FitReport, true);
    draw();
    EXPECT_EQ(m_ui.floating().size(), 1u);
}

}  // namespace
