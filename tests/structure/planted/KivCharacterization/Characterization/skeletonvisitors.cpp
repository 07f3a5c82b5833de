#include "KivCharacterization/Characterization/characterbvh.h"
#include "KivCharacterization/naming.h"
