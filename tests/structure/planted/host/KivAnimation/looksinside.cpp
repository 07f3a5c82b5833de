#include "host/KivAnimation/poser.h"
#include "host/KivReader/figure/motionfigure.h"
