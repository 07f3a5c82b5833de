#include "apps/kivplayer/output/exports.h"

#include "apps/kivplayer/output/actorfile.h"
#include "apps/kivplayer/output/moments.h"
#include "apps/kivplayer/output/motiontable.h"
#include "apps/kivplayer/output/videofile.h"
#include "apps/kivplayer/support/progress.h"

namespace KivPlayer {

namespace {

bool isTable(const std::string& file)
{
    return lowerCaseEnding(file) == ".csv";
}

std::string writeTable(const std::string& file, const Options& options, const Session& session,
                       Console& console)
{
    Progress progress(console.stream(), Progress::styleFor(Progress::kErrorStream, console.isQuiet()),
                      "export", rowsOfMotionTable(session, options.range), Progress::kPatience);
    return writeMotionTable(file, session, options.range, progress);
}

}  // namespace

bool isExportable(const std::string& file)
{
    const std::string ending = lowerCaseEnding(file);
    return isTable(file) || ending == ".osgb" || ending == ".osgt";
}

void writeExports(const Options& options, const Session& session, Console& console)
{
    for (const std::string& file : options.exports) {
        const std::string problem = isTable(file)
                                        ? writeTable(file, options, session, console)
                                        : writeActors(file, session, momentOf(options, session.actors()));
        if (problem.empty())
            console.note(file + ": written");
        else
            console.error({file, 0, 0, problem});
    }
}

}  // namespace KivPlayer
