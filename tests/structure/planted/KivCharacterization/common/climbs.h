#include "KivCharacterization/Characterization/jointnaming.h"
#include "KivCharacterization/common/actorinfo.h"
