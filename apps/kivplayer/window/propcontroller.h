#pragma once

#include <string>

#include "apps/kivplayer/window/playercontext.h"
#include "apps/kivplayer/window/state/propswatch.h"
#include "apps/kivplayer/window/state/requests.h"

namespace KivPlayer {

/// Moves props and shows their draggers, by commands, and hears from the module how the user drags them.
class PropController
{
public:
    /// Registers with the module for as long as it lives.
    explicit PropController(const PlayerContext& context);
    ~PropController();
    PropController(const PropController&) = delete;
    PropController& operator=(const PropController&) = delete;

    void showDragger(const std::string& prop, bool shown);
    void showContactDragger(const std::string& prop, bool shown);
    /// Of all props.
    void showDraggers(bool shown);
    void showContactDraggers(bool shown);
    void pose(const PoseProp& wanted);

    bool isDragging() const { return m_watch.isDragging(); }
    void finishDrags();

    /// Looks for the props of the session's actors. Inside a pass of the gate.
    void takeActors();
    /// Lists the props for the panels.
    void updateState();

    const PropsWatch& watch() const { return m_watch; }

private:
    PlayerContext m_context;
    PropsWatch m_watch;
};

}  // namespace KivPlayer
