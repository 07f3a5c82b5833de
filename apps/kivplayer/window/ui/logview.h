#pragma once

#include <cstddef>

#include "apps/kivplayer/window/ui/uicontext.h"

namespace KivPlayer {

/// The part of the sidebar that shows the log. Opens by itself where something went wrong.
class LogView
{
public:
    void draw(const UiContext& ui);

private:
    std::size_t m_lines = 0;
    std::size_t m_errors = 0;
};

}  // namespace KivPlayer
