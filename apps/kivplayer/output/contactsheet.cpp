#include "apps/kivplayer/output/contactsheet.h"

#include <filesystem>
#include <memory>
#include <set>
#include <vector>

#include "apps/kivplayer/content/loadingprogress.h"
#include "apps/kivplayer/output/picturemaker.h"
#include "apps/kivplayer/output/tiling.h"
#include "apps/kivplayer/session/avatarprobe.h"
#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/support/progress.h"

namespace KivPlayer {

namespace {

using Pictures = std::vector<osg::ref_ptr<osg::Image>>;

const char* const kSheetName = "contact-sheet";

/// The file's name without folder and extension, numbered where it is taken already.
std::string nameFor(const std::string& motion, std::set<std::string>& taken)
{
    const std::string stem = std::filesystem::path(motion).stem().string();
    std::string name = stem;
    for (int i = 2; !taken.insert(name).second; ++i)
        name = stem + "-" + std::to_string(i);
    return name;
}

std::string secondsText(double seconds)
{
    const std::string text = std::to_string(static_cast<long long>(seconds * 100.0 + 0.5));
    const std::string padded = text.size() < 3 ? std::string(3 - text.size(), '0') + text : text;
    return padded.substr(0, padded.size() - 2) + "." + padded.substr(padded.size() - 2) + " s";
}

osg::ref_ptr<osg::Image> rowOf(const std::string& name, double duration, int moments, PictureMaker& maker)
{
    Pictures pictures;
    for (int i = 0; i < moments; ++i) {
        const double seconds = moments > 1 ? duration * i / (moments - 1) : 0.0;
        maker.caption(i == 0 ? name : secondsText(seconds));
        pictures.push_back(maker.picture(seconds));
    }
    return tiled(pictures, moments);
}

/// Loads a motion as the only one there is, and says how far it is where that takes long.
bool loaded(Session& session, const std::string& motion, const std::string& name, Progress::Style style,
            Console& console)
{
    LoadingProgress progress(console, 1, style);
    progress.begin(motion);
    const bool there = session.load(0, motion, name);
    progress.end();
    return there;
}

}  // namespace

ExitCode makeContactSheet(const Options& options, Console& console)
{
    Options each = options;
    each.follow = 0;
    Session session(console, options.reading);
    if (!startSession(session, options, console))
        return ExitFailed;
    const std::filesystem::path folder = options.contactSheet;
    std::unique_ptr<PictureMaker> spMaker;
    std::set<std::string> taken{kSheetName};
    Pictures rows;
    const Progress::Style style = Progress::styleFor(Progress::kErrorStream, console.isQuiet());
    Progress progress(console.stream(), style, "motions", options.motions.size());
    for (std::size_t i = 0; i < options.motions.size(); ++i) {
        const std::string name = nameFor(options.motions[i], taken);
        if (loaded(session, options.motions[i], name, style, console)) {
            if (spMaker)
                spMaker->restart();
            else
                spMaker = std::make_unique<PictureMaker>(each, session, console);
            rows.push_back(rowOf(name, session.actors().at(0).duration(), options.moments, *spMaker));
            spMaker->write(*rows.back(), (folder / (name + ".png")).string());
        }
        progress.done(i + 1);
    }
    if (!rows.empty()) {
        const int columns = columnsForASquare(rows.size(), rows.front()->s(), rows.front()->t());
        spMaker->write(*tiled(rows, columns), (folder / (std::string(kSheetName) + ".png")).string());
    }
    return console.hasFailed() ? ExitFailed : ExitDone;
}

}  // namespace KivPlayer
