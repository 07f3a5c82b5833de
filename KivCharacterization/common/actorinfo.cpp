#include "KivCharacterization/common/actorinfo.h"

#include "KivCharacterization/Characterization/actorupdatecallbacks.h"

namespace KivCharacterization {

// Out of line, because the callback is only declared where the record is.
SActorInfo::SActorInfo() = default;
SActorInfo::SActorInfo(const SActorInfo& other) = default;
SActorInfo& SActorInfo::operator=(const SActorInfo& other) = default;
SActorInfo::~SActorInfo() = default;

}  // namespace KivCharacterization
