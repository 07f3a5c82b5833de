#include "apps/kivplayer/headless.h"
#include "apps/kivplayer/main.h"
#include "apps/kivplayer/window/runwindow.h"
