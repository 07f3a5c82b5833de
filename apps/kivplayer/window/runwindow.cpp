#include "apps/kivplayer/window/runwindow.h"

#include <cstdlib>

#include "KivCharacterization/characterizationmanager.h"
#include "apps/kivplayer/session/avatarprobe.h"
#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/window/playerwindow.h"
#include "apps/kivplayer/window/startup.h"

namespace KivPlayer {

bool displayThere()
{
#if defined(_WIN32)
    return true;
#else
    const char* display = std::getenv("DISPLAY");
    return display && *display != '\0';
#endif
}

ExitCode runWindow(const Options& options, Console& console)
{
    Session session(console, options.reading);
    startSession(session, options, console);
    startUp().reached("avatar and font");
    {
        PlayerWindow window(options, session, console);
        window.run();
    }
    return console.hasFailed() ? ExitFailed : ExitDone;
}

}  // namespace KivPlayer
