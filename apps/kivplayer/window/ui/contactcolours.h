#pragma once

#include <string>

#include "apps/kivplayer/window/ui/uicontext.h"

namespace KivPlayer {

/// The part of the sidebar that paints contacts. Keeps what was chosen last.
class ContactColours
{
public:
    void draw(const UiContext& ui);

private:
    std::string m_joint;
    float m_colour[3] = {0.9f, 0.2f, 0.2f};
};

}  // namespace KivPlayer
