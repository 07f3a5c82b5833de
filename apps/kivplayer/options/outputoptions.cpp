#include "apps/kivplayer/options/outputoptions.h"

#include <CLI/CLI.hpp>

#include <string>
#include <variant>

#include "apps/kivplayer/options/optionchecks.h"
#include "apps/kivplayer/output/exports.h"
#include "apps/kivplayer/support/numbers.h"

namespace KivPlayer {

namespace {

constexpr int kMostMoments = 16;
/// Of one moment on a contact sheet, pixels.
constexpr int kSheetWidth = 270;
constexpr int kSheetHeight = 360;
/// A GIF's pictures last whole hundredths of a second, and viewers slow down what lasts less than two.
constexpr double kUsualGifRate = 25.0;
constexpr double kMostGifRate = 50.0;
constexpr int kGifWidth = 640;
constexpr int kGifHeight = 360;

void understandFormat(const OptionTexts& texts, Options& options)
{
    const std::string name = options.output->name(0);
    options.video = videoFormatOf(name);
    if (options.video == VideoFormat::None && lowerCaseEnding(name) != ".png")
        refuse("--output", "a name that ends in .png, .mp4, .mkv, .webm or .gif", texts.output);
    if (options.video != VideoFormat::None && options.output->isSequence())
        refuse("--output", "one name, since a video is one file", texts.output);
    if (options.video != VideoFormat::Gif)
        return;
    if (texts.fps.empty())
        options.fps = kUsualGifRate;
    if (options.fps > kMostGifRate)
        refuse("--fps", "at most 50 for a GIF", texts.fps);
    if (texts.resolution.empty()) {
        options.width = kGifWidth;
        options.height = kGifHeight;
    }
}

}  // namespace

void understandOutput(const OptionTexts& texts, Options& options)
{
    if (!texts.output.empty()) {
        auto names = OutputNames::parse(texts.output);
        if (const auto* problem = std::get_if<std::string>(&names))
            throw CLI::ValidationError("--output", *problem);
        options.output = std::get<OutputNames>(names);
        understandFormat(texts, options);
    }
    for (const std::string& file : options.exports)
        if (!isExportable(file))
            refuse("--export", "a name that ends in .csv, .osgb or .osgt", file);
    if (!texts.threshold.empty())
        options.referenceThreshold =
            numberIn("--reference-threshold", texts.threshold, "a difference, 0 or more", 0.0);
    options.render = !texts.noRender;
}

void understandSheet(const OptionTexts& texts, Options& options)
{
    if (!texts.moments.empty()) {
        const auto moments = parseInteger(texts.moments);
        if (!moments || *moments < 1 || *moments > kMostMoments)
            refuse("--moments", "1 to " + std::to_string(kMostMoments), texts.moments);
        options.moments = static_cast<int>(*moments);
    }
    if (!options.contactSheet.empty() && texts.resolution.empty()) {
        options.width = kSheetWidth;
        options.height = kSheetHeight;
    }
}

}  // namespace KivPlayer
