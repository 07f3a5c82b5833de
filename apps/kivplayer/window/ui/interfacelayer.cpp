#include "apps/kivplayer/window/ui/interfacelayer.h"

#include <backends/imgui_impl_opengl2.h>
#include <imgui.h>

#include <algorithm>

#include "apps/kivplayer/window/ui/interfaceevents.h"
#include "apps/kivplayer/window/ui/interfacepainter.h"
#include "apps/kivplayer/window/ui/theme.h"

namespace KivPlayer {

struct InterfaceLayer::Context
{
    osg::ref_ptr<InterfaceEvents> events = new InterfaceEvents;
    osg::ref_ptr<InterfacePainter> painter = new InterfacePainter;
    double seconds = -1.0;
    std::string focused;  ///< the panel that the keyboard works
    bool focusMoves = false;
};

InterfaceLayer::InterfaceLayer(const std::string& fontFile) : m_spContext(std::make_unique<Context>())
{
    IMGUI_CHECKVERSION();
    ImGui::CreateContext();
    ImGuiIO& io = ImGui::GetIO();
    io.IniFilename = nullptr;
    io.LogFilename = nullptr;
    io.BackendPlatformName = "osgGA";
    InterfaceEvents::mapKeys(io);
    Theme::apply(fontFile);
    io.Fonts->Build();
    ImGui_ImplOpenGL2_Init();
}

InterfaceLayer::~InterfaceLayer()
{
    m_spContext->painter->forgetPanels();
    ImGui_ImplOpenGL2_Shutdown();
    ImGui::DestroyContext();
}

void InterfaceLayer::attach(osgViewer::View& view, osg::Node& sceneRoot)
{
    sceneRoot.addEventCallback(m_spContext->events);
    view.getCamera()->setPostDrawCallback(m_spContext->painter);
}

void InterfaceLayer::setPanels(int left, int bottom)
{
    m_spContext->events->setPanels(static_cast<float>(left), static_cast<float>(bottom));
}

void InterfaceLayer::setFloating(const std::vector<Rect>& floating)
{
    m_spContext->events->setFloating(floating);
}

void InterfaceLayer::focusNextPanel(const std::vector<std::string>& panels)
{
    Context& context = *m_spContext;
    const auto now = context.events->keysToPanels() ? std::find(panels.begin(), panels.end(), context.focused)
                                                    : panels.end();
    const auto next = now == panels.end() ? panels.begin() : now + 1;
    context.events->giveKeysToPanels(next != panels.end());
    context.focused = next != panels.end() ? *next : std::string();
    context.focusMoves = true;
}

std::string InterfaceLayer::focusedPanel() const
{
    return m_spContext->events->keysToPanels() ? m_spContext->focused : std::string();
}

void InterfaceLayer::begin(int width, int height, double seconds)
{
    Context& context = *m_spContext;
    ImGuiIO& io = ImGui::GetIO();
    io.DisplaySize = ImVec2(static_cast<float>(width), static_cast<float>(height));
    const double passed = context.seconds < 0.0 ? 1.0 / 60.0 : seconds - context.seconds;
    io.DeltaTime = static_cast<float>(std::max(passed, 1e-4));
    context.seconds = seconds;
    // Of two clicks each press and release takes a frame of its own, however long that is.
    io.MouseDoubleClickTime = std::max(0.3f, 4.0f * io.DeltaTime);
    context.events->takeOver(io);
    const bool navigating = (io.ConfigFlags & ImGuiConfigFlags_NavEnableKeyboard) != 0;
    const bool wanted = context.events->keysToPanels();
    io.ConfigFlags = wanted ? ImGuiConfigFlags_NavEnableKeyboard : ImGuiConfigFlags_None;
    if (navigating && !wanted)
        ImGui::SetWindowFocus(nullptr);
    ImGui::NewFrame();
    if (context.focusMoves && wanted)
        ImGui::SetWindowFocus(context.focused.c_str());
    context.focusMoves = false;
}

void InterfaceLayer::end()
{
    ImGui::Render();
    m_spContext->events->letGo(ImGui::GetIO());
    m_spContext->painter->setDescribed();
}

void InterfaceLayer::askForPicture(const ViewArea& area)
{
    m_spContext->painter->keepPicture(area);
}

osg::ref_ptr<osg::Image> InterfaceLayer::takePicture()
{
    return m_spContext->painter->takePicture();
}

}  // namespace KivPlayer
