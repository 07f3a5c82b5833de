#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace KivPlayer {

/// What can be shown beside the figures and put over. A new one needs its name here, its row in the table of
/// overlays.cpp, and what draws it.
enum class Overlay
{
    Names,
    Contacts,
    CentreOfMass,
    Skeleton,
    Grid,
    Shadows,
    PropDraggers,
    ContactDraggers,
    FitReport,
    Statistics,
    Help
};
constexpr std::size_t kOverlayCount = 11;

/// A row of the table that command line, keys, panels and state file share.
struct OverlayEntry
{
    Overlay overlay;
    const char* name;   ///< on the command line and in the state file
    char key;           ///< puts it over, in the window; upper case: with Shift
    const char* label;  ///< in the window
    const char* text;   ///< in the list of keys
    bool isOption;      ///< --show and --hide know it
    bool isInPanel;     ///< it has a box among the overlays of the window
    bool isShown;       ///< unless somebody decides
};

/// In the order of the enumeration.
const std::array<OverlayEntry, kOverlayCount>& overlayTable();
const OverlayEntry& entryOf(Overlay overlay);
/// @return null where --show does not know the name.
const OverlayEntry* overlayOption(std::string_view name);
/// The names that --show knows, a comma between them and this word before the last: "names, com or grid".
std::string overlayOptionNames(const std::string& lastSeparator = ", ");

/// Which overlays are shown, and which of them somebody has decided about.
class OverlaySet
{
public:
    /// What was decided, else what the table says.
    bool operator[](Overlay overlay) const;
    std::optional<bool> chosen(Overlay overlay) const { return m_chosen[indexOf(overlay)]; }
    void set(Overlay overlay, bool shown) { m_chosen[indexOf(overlay)] = shown; }

private:
    static std::size_t indexOf(Overlay overlay) { return static_cast<std::size_t>(overlay); }

    std::array<std::optional<bool>, kOverlayCount> m_chosen;
};

}  // namespace KivPlayer
