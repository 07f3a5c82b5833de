#include "KivCharacterization/Characterization/modelloading.h"
#include "host/KivReader/readerwriterbvh.h"
