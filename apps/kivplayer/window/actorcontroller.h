#pragma once

#include <set>
#include <string>

#include "apps/kivplayer/window/playercontext.h"
#include "apps/kivplayer/window/state/filewatch.h"

namespace KivPlayer {

/// Brings actors in and out, and changes them, as the user asks. What has changed in the scene is taken over
/// by the caller.
class ActorController
{
public:
    explicit ActorController(const PlayerContext& context)
        : m_context(context), m_watch(context.options.watch)
    {}

    /// Those of the command line.
    void loadAll();
    void load(const std::string& file);
    void replace(unsigned actor, const std::string& file);
    /// The caller takes the actors over anew.
    void remove(unsigned actor);
    void rename(unsigned actor, const std::string& name);
    void show(unsigned actor, bool shown);
    void offset(unsigned actor, double seconds);

    /// Loads again what has changed on the disk.
    void reloadChangedFiles(double seconds);

    /// Hides who is to be hidden; inside a pass of the gate.
    void applyVisibility() const;
    /// Lists the actors for the panels.
    void updateState() const;

private:
    PlayerContext m_context;
    FileWatch m_watch;
    std::set<unsigned> m_hidden;
    unsigned m_next = 0;  ///< index of the next actor
};

}  // namespace KivPlayer
