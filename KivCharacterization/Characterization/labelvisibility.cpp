#include "KivCharacterization/Characterization/labelvisibility.h"

#include <algorithm>

namespace KivCharacterization {

namespace {

/// Whether setting all children would change nothing. It would still have the bounds of all that is above
/// the label found anew.
bool isSet(const osg::Switch& label, bool show)
{
    const osg::Switch::ValueList& values = label.getValueList();
    return label.getNewChildDefaultValue() == show &&
           std::all_of(values.begin(), values.end(), [show](bool value) { return value == show; });
}

}  // namespace

void UpdateLabelVisibility(const ActorTable& actors)
{
    const bool show = actors.size() >= 2;
    for (const auto& [key, actor] : actors) {
        if (!actor.labelSwitch || isSet(*actor.labelSwitch, show)) {
            continue;
        }
        if (show) {
            actor.labelSwitch->setAllChildrenOn();
        } else {
            actor.labelSwitch->setAllChildrenOff();
        }
    }
}

}  // namespace KivCharacterization
