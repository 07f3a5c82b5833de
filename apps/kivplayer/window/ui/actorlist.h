#pragma once

#include <map>
#include <set>
#include <string>

#include "apps/kivplayer/window/ui/uicontext.h"

namespace KivPlayer {

/// The part of the sidebar that lists the actors. Keeps what is open and what is being typed.
class ActorList
{
public:
    void draw(const UiContext& ui);

private:
    void actor(const UiContext& ui, const ActorState& actor);
    void name(const UiContext& ui, const ActorState& actor);
    void details(const UiContext& ui, const ActorState& actor);
    void buttons(const UiContext& ui, const ActorState& actor);
    void replacement(const UiContext& ui, const ActorState& actor);
    static void offset(const UiContext& ui, const ActorState& actor);

    std::map<unsigned, std::string> m_typed;  ///< names that are being edited
    std::set<unsigned> m_open;                ///< actors whose details are shown
    std::string m_file;
    std::string m_replacement;
};

}  // namespace KivPlayer
