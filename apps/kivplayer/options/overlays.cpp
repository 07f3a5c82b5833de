#include "apps/kivplayer/options/overlays.h"

namespace KivPlayer {

const std::array<OverlayEntry, kOverlayCount>& overlayTable()
{
    // The last three: known to --show, in the panel, shown at first.
    static constexpr std::array<OverlayEntry, kOverlayCount> kTable{{
        {Overlay::Names, "names", 'n', "Names", "Names", true, true, false},
        {Overlay::Contacts, "contacts", 'c', "Contacts", "Contacts", true, true, false},
        {Overlay::CentreOfMass, "com", 'm', "Mass centre", "Centre of mass", true, true, false},
        {Overlay::Skeleton, "skeleton", 'b', "Bones", "Bones over the bodies", true, true, false},
        {Overlay::Grid, "grid", 'g', "Grid", "Grid on the ground", true, true, true},
        {Overlay::Shadows, "shadows", 'd', "Shadows", "Shadows", false, true, true},
        {Overlay::PropDraggers, "props", 'p', "Prop draggers", "Draggers on the props", true, false, false},
        {Overlay::ContactDraggers, "contactDraggers", 'P', "Contact draggers",
         "Draggers on the props' contact points", false, false, false},
        {Overlay::FitReport, "fit", 'r', "Fit report", "Fit report: how every actor was dressed", false, true,
         false},
        {Overlay::Statistics, "statistics", 's', "Statistics", "Statistics", false, true, false},
        {Overlay::Help, "help", 'h', "Keys", "These keys", false, false, false},
    }};
    return kTable;
}

const OverlayEntry& entryOf(Overlay overlay)
{
    return overlayTable()[static_cast<std::size_t>(overlay)];
}

const OverlayEntry* overlayOption(std::string_view name)
{
    for (const OverlayEntry& entry : overlayTable())
        if (entry.isOption && entry.name == name)
            return &entry;
    return nullptr;
}

std::string overlayOptionNames(const std::string& lastSeparator)
{
    std::string before;
    std::string last;
    for (const OverlayEntry& entry : overlayTable()) {
        if (!entry.isOption)
            continue;
        if (!last.empty())
            before += (before.empty() ? "" : ", ") + last;
        last = entry.name;
    }
    return before + lastSeparator + last;
}

bool OverlaySet::operator[](Overlay overlay) const
{
    return chosen(overlay).value_or(entryOf(overlay).isShown);
}

}  // namespace KivPlayer
