#include "apps/kivplayer/window/ui/interfaceevents.h"

#include <algorithm>

namespace KivPlayer {

namespace {

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
    {ImGuiKey_Space, Keys::KEY_Space},
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

}  // namespace

void InterfaceEvents::mapKeys(ImGuiIO& io)
{
    for (const KeyPair& pair : kKeys)
        io.KeyMap[pair.meaning] = slotOf(pair.key);
}

bool InterfaceEvents::handle(const Event& ea, osgGA::GUIActionAdapter&, osg::Object*, osg::NodeVisitor*)
{
    switch (ea.getEventType()) {
        case Event::PUSH:
        case Event::DOUBLECLICK:
            return mouseButton(ea, true);
        case Event::RELEASE:
            return mouseButton(ea, false);
        case Event::MOVE:
            mouseMoved(ea);
            return overPanel();
        case Event::DRAG:
            mouseMoved(ea);
            return !m_sceneHasMouse;
        case Event::SCROLL:
            return scrolled(ea);
        case Event::KEYDOWN:
        case Event::KEYUP:
            return key(ea, ea.getEventType() == Event::KEYDOWN);
        default:
            return false;
    }
}

void InterfaceEvents::takeOver(ImGuiIO& io)
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

void InterfaceEvents::setPanels(float left, float bottom)
{
    m_left = left;
    m_bottom = bottom;
}

void InterfaceEvents::letGo(ImGuiIO& io)
{
    for (const int slot : m_released)
        io.KeysDown[slot] = false;
    m_released.clear();
    m_fresh.clear();
}

void InterfaceEvents::mouseMoved(const Event& ea, int button, bool down)
{
    const float height = ImGui::GetIO().DisplaySize.y;
    const bool upwards = ea.getMouseYOrientation() == Event::Y_INCREASING_UPWARDS;
    m_pointer = ImVec2(ea.getX(), upwards ? height - ea.getY() : ea.getY());
    m_moves.push_back({m_pointer, button, down});
}

bool InterfaceEvents::mouseButton(const Event& ea, bool down)
{
    mouseMoved(ea);
    const int button = ea.getButton() == Event::RIGHT_MOUSE_BUTTON    ? 1
                       : ea.getButton() == Event::MIDDLE_MOUSE_BUTTON ? 2
                                                                      : 0;
    const bool ours = down ? overPanel() : !m_sceneHasMouse;
    m_sceneHasMouse = down && !ours;
    m_keysToPanels = m_keysToPanels && !down;
    if (ours)
        mouseMoved(ea, button, down);
    else if (down)
        ImGui::SetWindowFocus(nullptr);
    return ours;
}

/// What lies under the pointer now; the panels themselves learn of its last move with the next frame.
bool InterfaceEvents::overPanel() const
{
    const auto inside = [this](const Rect& rect) { return rect.contains(m_pointer.x, m_pointer.y); };
    return m_pointer.x < m_left || m_pointer.y >= ImGui::GetIO().DisplaySize.y - m_bottom ||
           std::any_of(m_floating.begin(), m_floating.end(), inside) ||
           ImGui::IsPopupOpen("", ImGuiPopupFlags_AnyPopup);
}

bool InterfaceEvents::scrolled(const Event& ea) const
{
    if (!overPanel() || m_sceneHasMouse)
        return false;
    ImGui::GetIO().MouseWheel += ea.getScrollingMotion() == Event::SCROLL_UP ? 1.0f : -1.0f;
    return true;
}

void InterfaceEvents::noteModifiers(const Event& ea, ImGuiIO& io)
{
    io.KeyCtrl = (ea.getModKeyMask() & Event::MODKEY_CTRL) != 0;
    io.KeyShift = (ea.getModKeyMask() & Event::MODKEY_SHIFT) != 0;
    io.KeyAlt = (ea.getModKeyMask() & Event::MODKEY_ALT) != 0;
}

bool InterfaceEvents::key(const Event& ea, bool down)
{
    ImGuiIO& io = ImGui::GetIO();
    const int pressed = ea.getUnmodifiedKey() != 0 ? ea.getUnmodifiedKey() : ea.getKey();
    noteModifiers(ea, io);
    const bool busy = io.WantTextInput || ImGui::IsPopupOpen("", ImGuiPopupFlags_AnyPopup);
    if (down && m_keysToPanels && pressed == Event::KEY_Escape && !busy) {
        m_keysToPanels = false;
        return true;
    }
    // A key that comes and goes between two frames is down for one, too.
    const int slot = slotOf(pressed);
    if (down)
        m_fresh.insert(slot);
    if (!down && m_fresh.count(slot) > 0)
        m_released.insert(slot);
    else
        io.KeysDown[slot] = down;
    if (!(io.WantCaptureKeyboard || m_keysToPanels) || pressed == Event::KEY_F6)
        return false;
    if (down && !io.KeyCtrl && ea.getKey() >= 0x20 && ea.getKey() < 0xFF && ea.getKey() != 0x7F)
        io.AddInputCharacter(static_cast<unsigned>(ea.getKey()));
    return true;
}

}  // namespace KivPlayer
