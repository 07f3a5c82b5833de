#include <osg/Notify>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string_view>

#include "apps/kivplayer/headless.h"
#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/session/avatarprobe.h"
#include "apps/kivplayer/support/console.h"
#include "apps/kivplayer/support/platform/interruption.h"
#include "apps/kivplayer/support/printable.h"
#include "apps/kivplayer/support/softwaredrawing.h"
#include "apps/kivplayer/window/runwindow.h"
#include "apps/kivplayer/window/startup.h"
#include "apps/kivplayer/window/state/keytable.h"

int main(int argc, char** argv)
{
    using KivPlayer::Console;
    if (argc == 4 && argv[1] == std::string_view(KivPlayer::kProbeAvatar))
        return KivPlayer::probeAvatar(argv[2], argv[3]);
    KivPlayer::cleanUpWhenInterrupted();
    KivPlayer::startUp().reached("program");
    const KivPlayer::Parsing parsing = KivPlayer::parseOptions(argc, argv, KivPlayer::displayThere());
    std::cout << (parsing.asksForKeys ? KivPlayer::keysHelp() : parsing.output) << std::flush;
    std::cerr << KivPlayer::printable(parsing.error) << std::flush;
    if (!parsing.options)
        return parsing.exitCode;
    KivPlayer::Options options = *parsing.options;
    options.ownProgram = "/proc/self/exe";
    const Console::Verbosity verbosity = options.quiet     ? Console::Verbosity::Quiet
                                         : options.verbose ? Console::Verbosity::Verbose
                                                           : Console::Verbosity::Normal;
    if (!std::getenv("OSG_NOTIFY_LEVEL"))
        osg::setNotifyLevel(options.verbose ? osg::NOTICE : osg::FATAL);
    if (!options.window)
        KivPlayer::drawOnOneThread();
    try {
        Console console(std::cerr, verbosity);
        return options.window ? KivPlayer::runWindow(options, console)
                              : KivPlayer::runHeadless(options, console);
    } catch (const std::exception& problem) {
        std::cerr << "kivplayer: error: " << KivPlayer::printable(problem.what()) << std::endl;
        return KivPlayer::ExitFailed;
    }
}
