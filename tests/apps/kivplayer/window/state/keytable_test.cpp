#include "apps/kivplayer/window/state/keytable.h"

#include <gtest/gtest.h>

#include <osg/ApplicationUsage>
#include <osgGA/GUIEventAdapter>

#include <set>
#include <string>
#include <utility>

using namespace KivPlayer;

TEST(KeyTable, givesNoKeyToWhatIsNotThere)
{
    EXPECT_EQ(bindingFor('~', false), nullptr);
    EXPECT_EQ(bindingFor(osgGA::GUIEventAdapter::KEY_Space, true), nullptr);
}

TEST(KeyTable, givesEveryKeyOnce)
{
    std::set<std::pair<int, bool>> keys;
    std::set<std::string> names;
    for (const KeyBinding& binding : keyBindings()) {
        EXPECT_TRUE(keys.emplace(binding.key, binding.control).second) << binding.name;
        EXPECT_TRUE(names.insert(binding.name).second) << binding.name;
        EXPECT_EQ(bindingFor(binding.key, binding.control), &binding);
    }
}

TEST(KeyTable, tellsHomeFromCtrlHome)
{
    const KeyBinding* home = bindingFor(osgGA::GUIEventAdapter::KEY_Home, false);
    const KeyBinding* first = bindingFor(osgGA::GUIEventAdapter::KEY_Home, true);
    ASSERT_TRUE(home && first);
    EXPECT_EQ(std::get<Action>(home->request), Action::CameraHome);
    EXPECT_EQ(std::get<Action>(first->request), Action::FirstFrame);
}

TEST(KeyTable, hasAKeyForEveryOverlay)
{
    for (const OverlayEntry& entry : overlayTable()) {
        const KeyBinding* binding = bindingFor(entry.key, false);
        ASSERT_TRUE(binding) << entry.name;
        EXPECT_EQ(std::get<ToggleOverlay>(binding->request).overlay, entry.overlay);
        EXPECT_EQ(binding->text, entry.text);
    }
    EXPECT_EQ(bindingFor('P', false)->name, "Shift+p");
}

TEST(KeyTable, isWhatHelpAndApplicationUsageSay)
{
    registerKeys();
    const auto& known = osg::ApplicationUsage::instance()->getKeyboardMouseBindings();
    const std::string help = keysHelp();
    for (const KeyBinding& binding : keyBindings()) {
        EXPECT_EQ(known.at(binding.name), binding.text);
        std::string line = binding.name;
        line.resize(20, ' ');
        EXPECT_NE(help.find(line + binding.text + "\n"), std::string::npos) << binding.name;
    }
    EXPECT_EQ(known.size(), keyBindings().size() + mouseBindings().size());
}
