#pragma once

#include <string>
#include <vector>

#include "apps/kivplayer/window/state/requests.h"

namespace KivPlayer {

struct KeyBinding
{
    Request request;
    int key;  ///< as osgGA::GUIEventAdapter spells it
    bool control;
    std::string name;  ///< as people call it
    std::string text;
};

struct MouseBinding
{
    std::string name;
    std::string text;
};

/// The one list of keys: the window obeys it, its help shows it, --help-keys prints it.
const std::vector<KeyBinding>& keyBindings();
const std::vector<MouseBinding>& mouseBindings();

/// @return null where the key does nothing.
const KeyBinding* bindingFor(int key, bool control);

/// Tells osg::ApplicationUsage of every key.
void registerKeys();

/// A line a key, for a terminal.
std::string keysHelp();

}  // namespace KivPlayer
