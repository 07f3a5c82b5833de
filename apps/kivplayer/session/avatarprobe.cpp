#include "apps/kivplayer/session/avatarprobe.h"

#include <sys/resource.h>
#include <unistd.h>

#include <optional>
#include <sstream>

#include "apps/kivplayer/content/runtimeroot.h"
#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/support/childprocess.h"
#include "apps/kivplayer/support/numbers.h"

namespace KivPlayer {

int probeAvatar(const std::string& root, const std::string& seconds)
{
    const rlimit noDump{0, 0};
    setrlimit(RLIMIT_CORE, &noDump);
    const std::optional<long long> limit = parseInteger(seconds);
    alarm(limit && *limit > 0 ? static_cast<unsigned>(*limit) : static_cast<unsigned>(kAvatarSeconds));
    std::ostringstream discarded;
    Console console(discarded, Console::Verbosity::Quiet);
    Session(console).start(root);
    return 0;
}

std::string avatarProbeProblem(const std::string& root, int seconds, const std::string& program)
{
    ChildProcess probe;
    const int problem = probe.start(program, {kProbeAvatar, root, std::to_string(seconds)});
    // Where no second process can be started, nothing is known against the avatar.
    return problem ? std::string() : probe.finish();
}

bool startSession(Session& session, const Options& options, Console& console)
{
    if (options.root.empty())
        return session.start(findRuntimeRoot());
    const std::string problem = options.ownProgram.empty()
                                    ? std::string()
                                    : avatarProbeProblem(options.root, kAvatarSeconds, options.ownProgram);
    if (problem.empty())
        return session.start(options.root);
    console.error({Session::avatarBelow(options.root), 0, 0,
                   "the avatar is damaged: a process that read it for at most " +
                       std::to_string(kAvatarSeconds) + " s " + problem + "; export the file again"});
    return false;
}

}  // namespace KivPlayer
