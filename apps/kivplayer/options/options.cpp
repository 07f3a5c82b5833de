#include "apps/kivplayer/options/options.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <map>
#include <sstream>

#include "KivReader/humanoidprofile.h"
#include "apps/kivplayer/options/inputprotection.h"
#include "apps/kivplayer/options/offsetoption.h"
#include "apps/kivplayer/options/optionchecks.h"
#include "apps/kivplayer/options/optiontexts.h"
#include "apps/kivplayer/options/outputoptions.h"
#include "apps/kivplayer/support/numbers.h"
#include "version.h"

namespace KivPlayer {

namespace {

constexpr int kMaxSide = 16384;

osg::Vec3d vector(const std::string& option, const std::string& text)
{
    const auto values = parseNumbers(text, 3);
    if (!values)
        throwUnexpected(option, "three numbers X,Y,Z", text);
    return {(*values)[0], (*values)[1], (*values)[2]};
}

/// A value as the reader's words have it; refused where the reader would not obey it.
std::string readerWord(const std::string& option, const std::string& name, const std::string& wanted,
                       const std::string& given)
{
    const std::string word = name + "=\"" + given + "\"";
    std::string problem;
    KivReader::profileOptionsFrom(word, problem);
    if (!problem.empty() || given.find('"') != std::string::npos)
        throwUnexpected(option, wanted, given);
    return word;
}

void parseReading(const OptionTexts& texts, Options& options)
{
    const std::string tableWanted = "auto, off or the path of a table, without double quotes in it";
    options.reading = readerWord("--profile", "profile", tableWanted, texts.profile);
    if (texts.profile != "auto" && texts.profile != "off")
        options.aliasTable = texts.profile;
    options.reading +=
        " " + readerWord("--unit", "unit", "auto, cm, m, mm, inch, dm, cmu or centimetres per unit, above 0",
                         texts.unit);
    options.reading += " " + readerWord("--up", "up", "auto, x, -x, y, -y, z or -z", texts.up);
    if (texts.firstFrameIsRest)
        options.reading += " firstFrameIsRest";
}

void parseTimes(const OptionTexts& texts, Options& options)
{
    if (!texts.time.empty())
        options.time = numberIn("--time", texts.time, "seconds, 0 or more", 0.0);
    if (!texts.frame.empty()) {
        const auto frame = parseInteger(texts.frame);
        if (!frame || *frame < 0)
            throwUnexpected("--frame", "a frame number, 0 or more", texts.frame);
        options.frame = *frame;
    }
    if (!texts.range.empty()) {
        const auto range = parseNumbers(texts.range, 2);
        if (!range || (*range)[0] < 0.0 || (*range)[1] < (*range)[0])
            throwUnexpected("--range", "two times FROM,TO in seconds", texts.range);
        options.range = std::make_pair((*range)[0], (*range)[1]);
    }
    if (!texts.fps.empty()) {
        options.fps = numberIn("--fps", texts.fps, "pictures per second, above 0", 0.0);
        if (options.fps <= 0.0 || options.fps > 1000.0)
            throwUnexpected("--fps", "pictures per second, above 0 and at most 1000", texts.fps);
    }
}

void parseSize(const OptionTexts& texts, Options& options)
{
    if (!texts.resolution.empty()) {
        const auto size = parseNumbers(texts.resolution, 2);
        const auto good = [](double side) {
            return side >= 1.0 && side <= kMaxSide && side == std::floor(side);
        };
        if (!size || !good((*size)[0]) || !good((*size)[1]))
            throwUnexpected("--resolution", "W,H in whole pixels, 1 to " + std::to_string(kMaxSide),
                            texts.resolution);
        options.width = static_cast<int>((*size)[0]);
        options.height = static_cast<int>((*size)[1]);
    }
    if (!texts.samples.empty()) {
        const auto samples = parseInteger(texts.samples);
        if (!samples || *samples < 1 || *samples > 8)
            throwUnexpected("--samples", "1 to 8", texts.samples);
        options.samples = static_cast<int>(*samples);
    }
}

void parseCamera(const OptionTexts& texts, Options& options)
{
    static const std::map<std::string, double> sides{
        {"front", 0.0}, {"three-quarter", 31.5}, {"left", 90.0}, {"back", 180.0}, {"right", -90.0}};
    if (!texts.camera.empty()) {
        const auto side = sides.find(texts.camera);
        const auto angles = parseNumbers(texts.camera, 2);
        if (side != sides.end())
            options.view.azimuth = osg::DegreesToRadians(side->second);
        else if (angles && std::abs((*angles)[1]) < 90.0)
            options.view = {osg::DegreesToRadians((*angles)[0]), osg::DegreesToRadians((*angles)[1])};
        else
            throwUnexpected("--camera", "front, back, left, right, three-quarter or AZIMUTH,ELEVATION",
                            texts.camera);
    }
    if (!texts.position.empty())
        options.cameraPosition = vector("--camera-position", texts.position);
    if (!texts.target.empty())
        options.cameraTarget = vector("--camera-target", texts.target);
    if (!texts.follow.empty()) {
        const auto actor = parseInteger(texts.follow);
        if (!actor || *actor < 0 || static_cast<std::size_t>(*actor) >= options.motions.size())
            throwUnexpected("--follow", "the number of a motion, 0 for the first", texts.follow);
        options.follow = static_cast<std::size_t>(*actor);
    }
    if (options.cameraPosition && options.cameraTarget && *options.cameraPosition == *options.cameraTarget)
        throwUnexpected("--camera-target", "a point other than the camera's position", texts.target);
}

void parseShown(const std::string& option, const std::vector<std::string>& what, bool value,
                OverlaySet& shown)
{
    for (const std::string& name : what) {
        const OverlayEntry* overlay = overlayOption(name);
        if (!overlay)
            throwUnexpected(option, overlayOptionNames(" or "), name);
        shown.set(overlay->overlay, value);
    }
}

}  // namespace

Parsing parseOptions(int argc, const char* const* argv, bool display)
{
    CLI::App app("Shows motion-capture files on an avatar", "kivplayer");
    app.set_version_flag("--version", "kivplayer " KIV_PLAYER_VERSION);
    app.get_formatter()->column_width(32);
    Options options;
    OptionTexts texts;
    declareOptions(app, options, texts);
    Parsing parsing;
    app.add_flag("--help-keys", parsing.asksForKeys, "Print the keys of the window and exit");
    app.add_flag("--watch", options.watch, "In the window, load a motion again when its file changes");
    app.add_option("--state-file", options.stateFile, "Keep writing what the window shows (JSON)")
        ->type_name("FILE");
    try {
        app.parse(argc, argv);
        if (parsing.asksForKeys)
            return parsing;
        parseReading(texts, options);
        parseOffsets(texts, options);
        parseTimes(texts, options);
        parseSize(texts, options);
        parseCamera(texts, options);
        parseShown("--show", texts.show, true, options.shown);
        parseShown("--hide", texts.hide, false, options.shown);
        parseOutput(texts, options);
        parseSheet(texts, options);
        options.window = display && asksForNoPicture(options);
        checkTogether(options, texts);
        protectInputs(options);
        parsing.options = options;
    } catch (const CLI::Success& answer) {
        std::ostringstream out;
        app.exit(answer, out, out);
        parsing.output = out.str();
    } catch (const CLI::Error& problem) {
        parsing.exitCode = ExitUsage;
        parsing.error = std::string("kivplayer: error: ") + problem.what() + "\nTry kivplayer --help\n";
    }
    return parsing;
}

}  // namespace KivPlayer
