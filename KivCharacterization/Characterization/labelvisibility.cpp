#include "KivCharacterization/Characterization/labelvisibility.h"

namespace KivCharacterization {

void updateLabelVisibility(const ActorTable& actors)
{
    const bool show = actors.size() >= 2;
    for (const auto& [key, actor] : actors) {
        if (!actor.labelSwitch) {
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
