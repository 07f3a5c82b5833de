#include "apps/kivplayer/window/state/keytable.h"

#include <osg/ApplicationUsage>
#include <osgGA/GUIEventAdapter>

namespace KivPlayer {

using Keys = osgGA::GUIEventAdapter;

namespace {

std::vector<KeyBinding> allBindings()
{
    std::vector<KeyBinding> bindings{
        {Action::TogglePlay, Keys::KEY_Space, false, "Space", "Play or pause"},
        {Action::StepBack, Keys::KEY_Comma, false, ",", "One frame back"},
        {Action::StepForward, Keys::KEY_Period, false, ".", "One frame on"},
        {Action::FirstFrame, Keys::KEY_Home, true, "Ctrl+Home", "First frame"},
        {Action::LastFrame, Keys::KEY_End, true, "Ctrl+End", "Last frame"},
        {Action::Slower, Keys::KEY_Leftbracket, false, "[", "Slower"},
        {Action::Faster, Keys::KEY_Rightbracket, false, "]", "Faster"},
        {Action::ToggleLoop, 'l', false, "l", "Play over and over, or once"},
        {Action::CameraHome, Keys::KEY_Home, false, "Home", "Camera home: the whole motion in view"},
        {Action::FollowNext, 'k', false, "k", "Follow the next actor, then none"},
    };
    for (const OverlayEntry& entry : overlayTable()) {
        const bool shift = entry.key >= 'A' && entry.key <= 'Z';
        const std::string name = shift ? std::string("Shift+") + static_cast<char>(entry.key - 'A' + 'a')
                                       : std::string(1, entry.key);
        bindings.push_back({ToggleOverlay{entry.overlay}, entry.key, false, name, entry.text});
    }
    bindings.push_back({Action::Screenshot, Keys::KEY_F12, false, "F12", "Write a picture of the scene"});
    bindings.push_back(
        {Action::NextPanel, Keys::KEY_F6, false, "F6", "Keyboard to the next panel; Esc gives it back"});
    bindings.push_back({Action::Quit, Keys::KEY_Escape, false, "Esc", "Cancel a drag; otherwise quit"});
    return bindings;
}

}  // namespace

const std::vector<KeyBinding>& keyBindings()
{
    static const std::vector<KeyBinding> bindings = allBindings();
    return bindings;
}

const std::vector<MouseBinding>& mouseBindings()
{
    static const std::vector<MouseBinding> bindings{
        {"Left drag", "Orbit; on a dragger: move or turn the prop"},
        {"Middle drag", "Pan"},
        {"Right drag, wheel", "Zoom"},
        {"Drop a file", "Load it"},
    };
    return bindings;
}

const KeyBinding* bindingFor(int key, bool control)
{
    for (const KeyBinding& binding : keyBindings())
        if (binding.key == key && binding.control == control)
            return &binding;
    return nullptr;
}

void registerKeys()
{
    osg::ApplicationUsage* usage = osg::ApplicationUsage::instance();
    for (const KeyBinding& binding : keyBindings())
        usage->addKeyboardMouseBinding(binding.name, binding.text);
    for (const MouseBinding& binding : mouseBindings())
        usage->addKeyboardMouseBinding(binding.name, binding.text);
}

std::string keysHelp()
{
    constexpr std::size_t kColumn = 20;
    std::string help;
    const auto line = [&help](const std::string& name, const std::string& text) {
        help += name + std::string(name.size() < kColumn ? kColumn - name.size() : 1, ' ') + text + "\n";
    };
    for (const KeyBinding& binding : keyBindings())
        line(binding.name, binding.text);
    for (const MouseBinding& binding : mouseBindings())
        line(binding.name, binding.text);
    return help;
}

}  // namespace KivPlayer
