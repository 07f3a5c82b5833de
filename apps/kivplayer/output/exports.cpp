#include "apps/kivplayer/output/exports.h"

#include "apps/kivplayer/options/fileformats.h"
#include "apps/kivplayer/output/actorfile.h"
#include "apps/kivplayer/output/motiontable.h"
#include "apps/kivplayer/output/outputtimes.h"
#include "apps/kivplayer/support/progress.h"

namespace KivPlayer {

namespace {

std::string writeTable(const std::string& file, const Options& options, const Session& session,
                       Console& console)
{
    Progress progress(console.stream(), Progress::styleFor(Progress::kErrorStream, console.isQuiet()),
                      "export", rowsOfMotionTable(session, options.range), Progress::kPatience);
    return writeMotionTable(file, session, options.range, progress);
}

}  // namespace

void writeExports(const Options& options, const Session& session, Console& console)
{
    for (const std::string& file : options.exports) {
        const std::string problem = isOfKind(formatOf(file), FileKind::Table)
                                        ? writeTable(file, options, session, console)
                                        : writeActors(file, session, stillTime(options, session.actors()));
        if (problem.empty())
            console.note(file + ": written");
        else
            console.error({file, 0, 0, problem});
    }
}

}  // namespace KivPlayer
