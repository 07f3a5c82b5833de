#pragma once

#include "KivCharacterization/common/actorinfo.h"

namespace KivCharacterization {

/// Names are for telling actors apart: with two actors or more every name shows, a lone actor shows none.
/// Actors without a label are skipped.
void updateLabelVisibility(const ActorTable& actors);

}  // namespace KivCharacterization
