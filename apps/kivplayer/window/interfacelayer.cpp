#include "window/interfacelayer.h"

#include <backends/imgui_impl_opengl2.h>
#include <imgui.h>
#include <osg/GLExtensions>
#include <osg/State>

#include <algorithm>
#include <deque>
#include <set>

#include "window/theme.h"

namespace KivPlayer {

namespace {

constexpr unsigned kTextureUnits = 8;  // what the stage may have enabled

using Keys = osgGA::GUIEventAdapter;

struct KeyPair
{
    ImGuiKey meaning;
    int key;
};

constexpr KeyPair kKeys[] = {
    {ImGuiKey_Tab, Keys::KEY_Tab},
    {ImGuiKey_LeftArrow, Keys::KEY_Left},
    {ImGuiKey_RightArrow, Keys::KEY_Right},
    {ImGuiKey_UpArrow, Keys::KEY_Up},
    {ImGuiKey_DownArrow, Keys::KEY_Down},
    {ImGuiKey_PageUp, Keys::KEY_Page_Up},
    {ImGuiKey_PageDown, Keys::KEY_Page_Down},
    {ImGuiKey_Home, Keys::KEY_Home},
    {ImGuiKey_End, Keys::KEY_End},
    {ImGuiKey_Delete, Keys::KEY_Delete},
    {ImGuiKey_Backspace, Keys::KEY_BackSpace},
    {ImGuiKey_Enter, Keys::KEY_Return},
    {ImGuiKey_KeyPadEnter, Keys::KEY_KP_Enter},
    {ImGuiKey_Escape, Keys::KEY_Escape},
    {ImGuiKey_A, 'a'},
    {ImGuiKey_C, 'c'},
    {ImGuiKey_V, 'v'},
    {ImGuiKey_X, 'x'},
    {ImGuiKey_Y, 'y'},
    {ImGuiKey_Z, 'z'},
};

/// Dear ImGui has room for 512 keys; what lies above is folded into it.
int slotOf(int key)
{
    return key < 0x100 ? key : 0x100 + (key & 0xFF);
}

class Listener : public osgGA::GUIEventHandler
{
public:
    bool handle(const Keys& ea, osgGA::GUIActionAdapter&, osg::Object*, osg::NodeVisitor*) override
    {
        switch (ea.getEventType()) {
            case Keys::PUSH:
            case Keys::DOUBLECLICK:
                return mouseButton(ea, true);
            case Keys::RELEASE:
                return mouseButton(ea, false);
            case Keys::MOVE:
                mouseMoved(ea);
                return overPanel();
            case Keys::DRAG:
                mouseMoved(ea);
                return !m_sceneHasMouse;
            case Keys::SCROLL:
                return scrolled(ea);
            case Keys::KEYDOWN:
            case Keys::KEYUP:
                return key(ea, ea.getEventType() == Keys::KEYDOWN);
            default:
                return false;
        }
    }

    /// What the pointer did since the last frame, up to the first button that changed: a click between two
    /// frames is still seen as a press and a release.
    void takeOver(ImGuiIO& io)
    {
        while (!m_moves.empty()) {
            const Move move = m_moves.front();
            m_moves.pop_front();
            io.MousePos = move.place;
            if (move.button < 0)
                continue;
            io.MouseDown[move.button] = move.down;
            break;
        }
    }

    void setPanels(float left, float bottom)
    {
        m_left = left;
        m_bottom = bottom;
    }

    void letGo(ImGuiIO& io)
    {
        for (const int slot : m_released)
            io.KeysDown[slot] = false;
        m_released.clear();
        m_fresh.clear();
    }

private:
    struct Move
    {
        ImVec2 place;
        int button;  ///< -1: none
        bool down;
    };

    void mouseMoved(const Keys& ea, int button = -1, bool down = false)
    {
        const float height = ImGui::GetIO().DisplaySize.y;
        const bool upwards = ea.getMouseYOrientation() == Keys::Y_INCREASING_UPWARDS;
        m_pointer = ImVec2(ea.getX(), upwards ? height - ea.getY() : ea.getY());
        m_moves.push_back({m_pointer, button, down});
    }

    bool mouseButton(const Keys& ea, bool down)
    {
        mouseMoved(ea);
        const int button = ea.getButton() == Keys::RIGHT_MOUSE_BUTTON    ? 1
                           : ea.getButton() == Keys::MIDDLE_MOUSE_BUTTON ? 2
                                                                         : 0;
        const bool ours = down ? overPanel() : !m_sceneHasMouse;
        m_sceneHasMouse = down && !ours;
        if (ours)
            mouseMoved(ea, button, down);
        else if (down)
            ImGui::SetWindowFocus(nullptr);
        return ours;
    }

    /// What lies under the pointer now; the panels themselves learn of its last move with the next frame.
    bool overPanel() const
    {
        return m_pointer.x < m_left || m_pointer.y >= ImGui::GetIO().DisplaySize.y - m_bottom ||
               ImGui::IsPopupOpen("", ImGuiPopupFlags_AnyPopup);
    }

    bool scrolled(const Keys& ea) const
    {
        ImGuiIO& io = ImGui::GetIO();
        if (!overPanel() || m_sceneHasMouse)
            return false;
        io.MouseWheel += ea.getScrollingMotion() == Keys::SCROLL_UP ? 1.0f : -1.0f;
        return true;
    }

    bool key(const Keys& ea, bool down)
    {
        ImGuiIO& io = ImGui::GetIO();
        const int pressed = ea.getUnmodifiedKey() != 0 ? ea.getUnmodifiedKey() : ea.getKey();
        io.KeyCtrl = (ea.getModKeyMask() & Keys::MODKEY_CTRL) != 0;
        io.KeyShift = (ea.getModKeyMask() & Keys::MODKEY_SHIFT) != 0;
        io.KeyAlt = (ea.getModKeyMask() & Keys::MODKEY_ALT) != 0;
        // A key that comes and goes between two frames is down for one, too.
        const int slot = slotOf(pressed);
        if (down)
            m_fresh.insert(slot);
        if (!down && m_fresh.count(slot) > 0)
            m_released.insert(slot);
        else
            io.KeysDown[slot] = down;
        if (!io.WantCaptureKeyboard)
            return false;
        if (down && !io.KeyCtrl && ea.getKey() >= 0x20 && ea.getKey() < 0xFF && ea.getKey() != 0x7F)
            io.AddInputCharacter(static_cast<unsigned>(ea.getKey()));
        return true;
    }

    std::deque<Move> m_moves;
    ImVec2 m_pointer{-1e6f, -1e6f};
    std::set<int> m_fresh;
    std::set<int> m_released;
    float m_left = 0.0f;
    float m_bottom = 0.0f;
    bool m_sceneHasMouse = false;
};

class Painter : public osg::Camera::DrawCallback
{
public:
    void operator()(osg::RenderInfo& info) const override
    {
        if (m_wanted)
            readScene(info);
        // Makes the font's texture, which needs the context; what is described from then on refers to it.
        ImGui_ImplOpenGL2_NewFrame();
        ImDrawData* panels = ImGui::GetDrawData();
        if (panels && m_described)
            paint(*info.getState(), *panels);
    }

    void forgetPanels() { m_described = false; }
    void setDescribed() { m_described = ImGui::GetIO().Fonts->TexID != nullptr; }

    mutable bool m_wanted = false;
    mutable osg::ref_ptr<osg::Image> m_spPicture;

private:
    void readScene(osg::RenderInfo& info) const
    {
        const osg::Viewport* viewport = info.getCurrentCamera()->getViewport();
        m_wanted = false;
        m_spPicture = new osg::Image;
        m_spPicture->readPixels(0, 0, static_cast<int>(viewport->width()),
                                static_cast<int>(viewport->height()), GL_RGB, GL_UNSIGNED_BYTE);
    }

    static void paint(osg::State& state, ImDrawData& panels)
    {
        const auto* gl = state.get<osg::GLExtensions>();
        glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        gl->glUseProgram(0);
        gl->glBindBuffer(GL_ARRAY_BUFFER_ARB, 0);
        gl->glBindBuffer(GL_ELEMENT_ARRAY_BUFFER_ARB, 0);
        for (unsigned unit = kTextureUnits; unit-- > 0;) {
            gl->glActiveTexture(GL_TEXTURE0 + unit);
            gl->glClientActiveTexture(GL_TEXTURE0 + unit);
            glDisable(GL_TEXTURE_2D);
            glDisableClientState(GL_TEXTURE_COORD_ARRAY);
        }
        ImGui_ImplOpenGL2_RenderDrawData(&panels);
        glPopAttrib();
        glPopClientAttrib();
        state.setLastAppliedProgramObject(nullptr);
        state.dirtyAllModes();
        state.dirtyAllAttributes();
        state.dirtyAllVertexArrays();
    }

    bool m_described = false;
};

}  // namespace

struct InterfaceLayer::Context
{
    osg::ref_ptr<Listener> listener = new Listener;
    osg::ref_ptr<Painter> painter = new Painter;
    double seconds = -1.0;
};

InterfaceLayer::InterfaceLayer(const std::string& fontFile) : m_spContext(std::make_unique<Context>())
{
    IMGUI_CHECKVERSION();
    ImGui::CreateContext();
    ImGuiIO& io = ImGui::GetIO();
    io.IniFilename = nullptr;
    io.LogFilename = nullptr;
    io.BackendPlatformName = "osgGA";
    for (const KeyPair& pair : kKeys)
        io.KeyMap[pair.meaning] = slotOf(pair.key);
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
    sceneRoot.addEventCallback(m_spContext->listener);
    view.getCamera()->setPostDrawCallback(m_spContext->painter);
}

void InterfaceLayer::setPanels(int left, int bottom)
{
    m_spContext->listener->setPanels(static_cast<float>(left), static_cast<float>(bottom));
}

void InterfaceLayer::begin(int width, int height, double seconds)
{
    ImGuiIO& io = ImGui::GetIO();
    io.DisplaySize = ImVec2(static_cast<float>(width), static_cast<float>(height));
    const double passed = m_spContext->seconds < 0.0 ? 1.0 / 60.0 : seconds - m_spContext->seconds;
    io.DeltaTime = static_cast<float>(std::max(passed, 1e-4));
    m_spContext->seconds = seconds;
    m_spContext->listener->takeOver(io);
    ImGui::NewFrame();
}

void InterfaceLayer::end()
{
    ImGui::Render();
    m_spContext->listener->letGo(ImGui::GetIO());
    m_spContext->painter->setDescribed();
}

void InterfaceLayer::askForPicture()
{
    m_spContext->painter->m_wanted = true;
}

osg::ref_ptr<osg::Image> InterfaceLayer::takePicture()
{
    osg::ref_ptr<osg::Image> picture = m_spContext->painter->m_spPicture;
    m_spContext->painter->m_spPicture = nullptr;
    return picture;
}

}  // namespace KivPlayer
