#include "apps/kivplayer/support/softwaredrawing.h"

#include <cstdlib>

namespace KivPlayer {

void drawOnOneThread()
{
    setenv("LP_NUM_THREADS", "0", 0);
}

}  // namespace KivPlayer
