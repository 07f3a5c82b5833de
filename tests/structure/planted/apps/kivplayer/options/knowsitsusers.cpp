#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/stage/stage.h"
#include "apps/kivplayer/support/numbers.h"
