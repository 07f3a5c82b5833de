#include "apps/kivplayer/options/optionchecks.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <utility>

#include "apps/kivplayer/support/numbers.h"

namespace KivPlayer {

namespace {

void checkSheet(const Options& options, const OptionTexts& texts)
{
    if (options.contactSheet.empty()) {
        if (!texts.moments.empty())
            throw CLI::ValidationError("--moments", "belongs to --contact-sheet");
        return;
    }
    const std::pair<const char*, bool> others[] = {{"--output", options.output.has_value()},
                                                   {"--time", options.time.has_value()},
                                                   {"--frame", options.frame.has_value()},
                                                   {"--follow", options.follow.has_value()},
                                                   {"--reference", !options.reference.empty()},
                                                   {"--report", !options.report.empty()},
                                                   {"--export", !options.exports.empty()},
                                                   {"--no-render", !options.render},
                                                   {"--write-profile", !options.aliasTableToWrite.empty()},
                                                   {"--offset", !options.offsets.empty()}};
    for (const auto& [name, given] : others)
        if (given)
            throw CLI::ValidationError(name, "excludes --contact-sheet");
}

}  // namespace

void throwUnexpected(const std::string& option, const std::string& wanted, const std::string& given)
{
    throw CLI::ValidationError(option, "expected " + wanted + ", found \"" + given + "\"");
}

double numberIn(const std::string& option, const std::string& text, const std::string& wanted, double least)
{
    const std::optional<double> value = parseNumber(text);
    if (!value || *value < least)
        throwUnexpected(option, wanted, text);
    return *value;
}

bool asksForNoPicture(const Options& options)
{
    return !options.output && options.render && options.reference.empty() && options.contactSheet.empty() &&
           options.exports.empty() && options.aliasTableToWrite.empty();
}

void checkTogether(const Options& options, const OptionTexts& texts)
{
    if (options.motions.empty() && !options.window)
        throw CLI::RequiredError("MOTION.bvh: at least one motion file");
    if (options.names.size() > options.motions.size())
        throw CLI::ValidationError("--name", "given " + std::to_string(options.names.size()) + " times for " +
                                                 std::to_string(options.motions.size()) + " motion(s)");
    if (options.verbose && options.quiet)
        throw CLI::ValidationError("--quiet", "excludes --verbose");
    if (options.time && options.frame)
        throw CLI::ValidationError("--frame", "excludes --time");
    const bool sequence = options.isMoving();
    if (sequence && (options.time || options.frame))
        throw CLI::ValidationError(options.time ? "--time" : "--frame",
                                   "shows one picture; a sequence or a video takes --range FROM,TO");
    if (!sequence && ((options.range && options.exports.empty()) || !texts.fps.empty()))
        throw CLI::ValidationError(options.range ? "--range" : "--fps",
                                   "needs a video, or a sequence: put {frame:04} into the name of --output");
    if (!options.reference.empty() && (sequence || !options.render))
        throw CLI::ValidationError("--reference", "compares one picture");
    if (options.output && !options.render)
        throw CLI::ValidationError("--no-render", "excludes --output");
    checkSheet(options, texts);
    if (options.watch && !options.window)
        throw CLI::ValidationError("--watch", "needs the window");
    if (asksForNoPicture(options) && options.report.empty() && !options.window)
        throw CLI::RequiredError(
            "nothing to do: no display for a window, and none of --output, --contact-sheet, --reference, "
            "--export, --report, --write-profile and --no-render");
}

}  // namespace KivPlayer
