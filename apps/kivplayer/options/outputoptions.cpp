#include "apps/kivplayer/options/outputoptions.h"

#include <CLI/CLI.hpp>

#include <string>
#include <variant>

#include "apps/kivplayer/options/fileformats.h"
#include "apps/kivplayer/options/optionchecks.h"
#include "apps/kivplayer/support/numbers.h"

namespace KivPlayer {

namespace {

constexpr int kMaxMoments = 16;
/// Of one moment on a contact sheet, pixels.
constexpr int kSheetWidth = 270;
constexpr int kSheetHeight = 360;
/// A GIF's pictures last whole hundredths of a second, and viewers slow down what lasts less than two.
constexpr double kDefaultGifRate = 25.0;
constexpr double kMaxGifRate = 50.0;
constexpr int kGifWidth = 640;
constexpr int kGifHeight = 360;

void parseFormat(const OptionTexts& texts, Options& options)
{
    const std::string name = options.output->name(0);
    options.format = formatOf(name);
    if (!options.isVideo() && !isOfKind(options.format, FileKind::Picture))
        throwUnexpected("--output",
                        "a name that ends in " + extensionsOf({FileKind::Picture, FileKind::Video}, " or "),
                        texts.output);
    if (options.isVideo() && options.output->isSequence())
        throwUnexpected("--output", "one name, since a video is one file", texts.output);
    if (options.format != FileFormat::Gif)
        return;
    if (texts.fps.empty())
        options.fps = kDefaultGifRate;
    if (options.fps > kMaxGifRate)
        throwUnexpected("--fps", "at most 50 for a GIF", texts.fps);
    if (texts.resolution.empty()) {
        options.width = kGifWidth;
        options.height = kGifHeight;
    }
}

}  // namespace

void parseOutput(const OptionTexts& texts, Options& options)
{
    if (!texts.output.empty()) {
        auto names = OutputNames::parse(texts.output);
        if (const auto* problem = std::get_if<std::string>(&names))
            throw CLI::ValidationError("--output", *problem);
        options.output = std::get<OutputNames>(names);
        parseFormat(texts, options);
    }
    for (const std::string& file : options.exports) {
        const FileFormat format = formatOf(file);
        if (!isOfKind(format, FileKind::Table) && !isOfKind(format, FileKind::Scene))
            throwUnexpected("--export",
                            "a name that ends in " + extensionsOf({FileKind::Table, FileKind::Scene}, " or "),
                            file);
    }
    if (!texts.threshold.empty())
        options.referenceThreshold =
            numberIn("--reference-threshold", texts.threshold, "a difference, 0 or more", 0.0);
    options.render = !texts.noRender;
}

void parseSheet(const OptionTexts& texts, Options& options)
{
    if (!texts.moments.empty()) {
        const auto moments = parseInteger(texts.moments);
        if (!moments || *moments < 1 || *moments > kMaxMoments)
            throwUnexpected("--moments", "1 to " + std::to_string(kMaxMoments), texts.moments);
        options.moments = static_cast<int>(*moments);
    }
    if (!options.contactSheet.empty() && texts.resolution.empty()) {
        options.width = kSheetWidth;
        options.height = kSheetHeight;
    }
}

}  // namespace KivPlayer
