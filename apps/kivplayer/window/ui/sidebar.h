#pragma once

#include "apps/kivplayer/window/ui/actorlist.h"
#include "apps/kivplayer/window/ui/contactcolours.h"
#include "apps/kivplayer/window/ui/logview.h"

namespace KivPlayer {

/// The panel at the left.
class Sidebar
{
public:
    void draw(const UiContext& ui);

private:
    ActorList m_actors;
    ContactColours m_contactColours;
    LogView m_log;
};

}  // namespace KivPlayer
