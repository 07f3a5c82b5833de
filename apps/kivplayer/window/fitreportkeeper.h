#pragma once

#include <string>
#include <utility>
#include <vector>

#include "apps/kivplayer/window/playercontext.h"

namespace KivPlayer {

/// Knows how the actors were dressed: for the panel, and for the file that the user wants.
class FitReportKeeper
{
public:
    explicit FitReportKeeper(const PlayerContext& context) : m_context(context) {}

    /// Gives the panel its report, where actors or names have changed.
    void updateState();
    /// Writes --report.
    void write() const;

private:
    /// What a report depends on: an actor that is replaced has another root.
    using Key = std::vector<std::pair<const osg::Node*, std::string>>;

    PlayerContext m_context;
    Key m_key;
};

}  // namespace KivPlayer
