#include "../figure/motionfigure.h"
#include "host/KivReader/figure/motionfigure.h"
#include "host/KivReader/syntax/textcursor.h"
