#include "KivReader/motiondocument.h"
#include "apps/kivplayer/window/playerwindow.h"
#include "apps/kivplayer/window/state/keytable.h"
#include "host/KivReader/syntax/textcursor.h"
