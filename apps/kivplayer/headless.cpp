#include "apps/kivplayer/headless.h"

#include <exception>
#include <filesystem>
#include <locale>
#include <sstream>

#include "apps/kivplayer/content/loadingprogress.h"
#include "apps/kivplayer/output/contactsheet.h"
#include "apps/kivplayer/output/exports.h"
#include "apps/kivplayer/output/picturefile.h"
#include "apps/kivplayer/output/picturemaker.h"
#include "apps/kivplayer/output/videofile.h"
#include "apps/kivplayer/report/aliastable.h"
#include "apps/kivplayer/report/fitreport.h"
#include "apps/kivplayer/report/reportfile.h"
#include "apps/kivplayer/report/summary.h"
#include "apps/kivplayer/session/avatarprobe.h"
#include "apps/kivplayer/session/session.h"

namespace KivPlayer {

namespace {

void report(const Options& options, const Session& session, Console& console)
{
    if (options.report.empty() && console.isQuiet())
        return;
    const FitReport report = fitReportOf(session.actors(), session.avatar(), console.errors());
    for (const ActorFit& actor : report.actors)
        console.say(summaryOf(actor));
    if (!options.report.empty())
        writeReport(options.report, report, console);
}

ExitCode compare(const Options& options, const osg::Image& picture, Console& console)
{
    const osg::ref_ptr<osg::Image> reference = readPicture(options.reference);
    if (!reference) {
        console.error({options.reference, 0, 0, "cannot be read as an RGB picture"});
        return ExitFailed;
    }
    const PictureDifference difference = comparePictures(picture, *reference);
    if (difference.sameSize && difference.worstTile <= options.referenceThreshold)
        return ExitDone;
    if (!difference.sameSize) {
        console.error({options.reference, 0, 0, "the picture has another size than its reference"});
        return ExitDifferent;
    }
    std::ostringstream message;
    message.imbue(std::locale::classic());
    message << "the picture differs by " << difference.worstTile << " in its worst tile; allowed is "
            << options.referenceThreshold;
    console.error({options.reference, 0, 0, message.str()});
    if (!options.referenceDifference.empty()) {
        const std::string problem = writePicture(*difference.image, options.referenceDifference);
        if (!problem.empty())
            console.error({options.referenceDifference, 0, 0, problem});
    }
    return ExitDifferent;
}

std::string labelOf(const Options& options, std::size_t index)
{
    if (index < options.names.size())
        return options.names[index];
    return std::filesystem::path(options.motions[index]).stem().string();
}

void loadAll(const Options& options, Session& session, Console& console)
{
    LoadingProgress progress(console, options.motions.size(),
                             Progress::styleFor(Progress::kErrorStream, console.isQuiet()));
    for (const auto& [actor, seconds] : options.offsets)
        session.setOffset(actor, seconds);
    for (std::size_t i = 0; i < options.motions.size(); ++i) {
        progress.begin(options.motions[i]);
        session.load(static_cast<unsigned>(i), options.motions[i], labelOf(options, i));
        progress.end();
    }
}

/// Videos of most formats have even sizes only.
Options withPossibleSize(Options options, Console& console)
{
    const int width = options.width + options.width % 2;
    const int height = options.height + options.height % 2;
    const bool odd = width != options.width || height != options.height;
    if (!options.isVideo() || !needsEvenSize(options.format) || !odd)
        return options;
    const auto text = [](int wide, int high) { return std::to_string(wide) + " x " + std::to_string(high); };
    console.warning({options.output->name(0), 0, 0,
                     "a video has even sizes: " + text(options.width, options.height) + " became " +
                         text(width, height)});
    options.width = width;
    options.height = height;
    return options;
}

ExitCode makePictures(const Options& options, Session& session, Console& console)
{
    if (const std::optional<bool> names = options.shown.chosen(Overlay::Names))
        session.showNames(*names);
    if (options.shown[Overlay::PropDraggers])
        session.showPropsDraggers(true);
    PictureMaker pictures(options, session, console);
    if (options.isMoving()) {
        if (options.isVideo())
            pictures.writeVideo(options.output->name(0));
        else
            pictures.writeSequence(*options.output);
        return ExitDone;
    }
    const osg::ref_ptr<osg::Image> picture = pictures.still();
    if (options.output)
        pictures.write(*picture, options.output->name(0));
    return options.reference.empty() ? ExitDone : compare(options, *picture, console);
}

}  // namespace

ExitCode runHeadless(const Options& options, Console& console)
{
    if (!options.contactSheet.empty())
        return makeContactSheet(options, console);
    Session session(console, options.reading);
    startSession(session, options, console);
    loadAll(options, session, console);
    ExitCode compared = ExitDone;
    try {
        const bool wanted = options.output || !options.reference.empty();
        if (options.render && wanted && !session.actors().empty())
            compared = makePictures(withPossibleSize(options, console), session, console);
    } catch (const std::exception& problem) {
        console.error({"", 0, 0, problem.what()});
    }
    if (!session.actors().empty())
        writeExports(options, session, console);
    report(options, session, console);
    if (!options.aliasTableToWrite.empty() && !session.actors().empty())
        writeAliasTable(options.aliasTableToWrite, session.actors(), console);
    if (compared == ExitDifferent)
        return ExitDifferent;
    return console.hasFailed() ? ExitFailed : ExitDone;
}

}  // namespace KivPlayer
