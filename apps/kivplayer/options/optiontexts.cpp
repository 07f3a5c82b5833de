#include "apps/kivplayer/options/optiontexts.h"

#include <CLI/CLI.hpp>

namespace KivPlayer {

namespace {

/// How skeletons from elsewhere are read.
void addReadingOptions(CLI::App& app, Options& options, OptionTexts& texts)
{
    const std::string reading = "Skeletons from elsewhere";
    app.add_option("--profile", texts.profile,
                   "Make any humanoid ready for dressing: auto, off, or a table of your own")
        ->type_name("auto|off|FILE")
        ->group(reading);
    app.add_option("--unit", texts.unit,
                   "The files' unit of length: auto, cm, m, mm, inch, dm, cmu, or centimetres per unit")
        ->type_name("UNIT")
        ->group(reading);
    app.add_option("--up", texts.up, "The files' upright axis: auto, x, -x, y, -y, z or -z")
        ->type_name("AXIS")
        ->group(reading);
    app.add_flag("--first-frame-is-rest", texts.firstFrameIsRest,
                 "The first frame is the rest pose, instead of all channels at 0")
        ->group(reading);
    app.add_option(
           "--write-profile", options.aliasTableToWrite,
           "Write which joint was taken for which as an alias table, to correct and pass to --profile")
        ->type_name("FILE")
        ->group(reading);
}

void addPictureOptions(CLI::App& app, Options& options, OptionTexts& texts)
{
    const std::string pictures = "Pictures";
    app.add_option("--output", texts.output,
                   "Picture to write (" + extensionsOf({FileKind::Picture}) +
                       "), with {frame:04} in it a sequence, or video (" + extensionsOf({FileKind::Video}) +
                       ")")
        ->type_name("FILE")
        ->group(pictures);
    app.add_option("--time", texts.time, "Show this second of the motion")
        ->group(pictures)
        ->type_name("SECONDS");
    app.add_option("--frame", texts.frame, "Show this frame of the first motion, counted from 0")
        ->group(pictures)
        ->type_name("NUMBER");
    app.add_option("--range", texts.range, "Part of the motion for a sequence or a video, in seconds")
        ->group(pictures)
        ->type_name("FROM,TO");
    app.add_option("--fps", texts.fps, "Pictures per second of a sequence or a video (30; of a GIF 25)")
        ->group(pictures)
        ->type_name("NUMBER");
    app.add_option("--resolution", texts.resolution, "Pixels (1280,720; of a GIF 640,360)")
        ->group(pictures)
        ->type_name("W,H");
    app.add_option("--samples", texts.samples, "Samples per pixel and direction, 1 to 8, for smooth edges")
        ->group(pictures)
        ->type_name("NUMBER");
    app.add_option("--camera", texts.camera,
                   "front, back, left, right, three-quarter, or AZIMUTH,ELEVATION in degrees")
        ->group(pictures)
        ->type_name("VIEW");
    app.add_option("--camera-position", texts.position, "Where it stands, scene units, Z up")
        ->group(pictures)
        ->type_name("X,Y,Z");
    app.add_option("--camera-target", texts.target, "What it looks at")->group(pictures)->type_name("X,Y,Z");
    app.add_option("--follow", texts.follow, "Follow an actor with the camera, counted from 0")
        ->type_name("NUMBER")
        ->group(pictures);
    app.add_option("--show", texts.show, overlayOptionNames())
        ->delimiter(',')
        ->allow_extra_args(false)
        ->group(pictures)
        ->type_name("THINGS");
    app.add_option("--hide", texts.hide, "the same names")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->group(pictures)
        ->type_name("THINGS");
    app.add_option("--reference", options.reference, "Compare the picture with this one")
        ->group(pictures)
        ->type_name("FILE");
    app.add_option("--reference-difference", options.referenceDifference,
                   "Where to paint the difference, if there is one (.png)")
        ->group(pictures)
        ->type_name("FILE");
    app.add_option("--reference-threshold", texts.threshold,
                   "Largest mean difference of a 16 x 16 tile, 0..255 (6)")
        ->group(pictures)
        ->type_name("NUMBER");
}

void addSheetOptions(CLI::App& app, Options& options, OptionTexts& texts)
{
    const std::string sheets = "Contact sheets";
    app.add_option("--contact-sheet", options.contactSheet,
                   "Picture every motion by itself at some moments, NAME.png, and all of them on "
                   "contact-sheet.png, in this folder")
        ->type_name("FOLDER")
        ->group(sheets);
    app.add_option("--moments", texts.moments, "How many of each motion, 1 to 16 (4)")
        ->type_name("NUMBER")
        ->group(sheets);
}

}  // namespace

void declareOptions(CLI::App& app, Options& options, OptionTexts& texts)
{
    app.add_option("MOTION.bvh", options.motions, "Motion files; each is one actor")->type_name("");
    app.add_option("--name", options.names, "Label of an actor; once for every motion, in their order")
        ->type_name("TEXT")
        ->allow_extra_args(false);
    app.add_option("--offset", texts.offsets,
                   "Start an actor, counted from 0, so many seconds later than the clock (below 0: earlier); "
                   "once for an actor")
        ->type_name("ACTOR=SECONDS")
        ->allow_extra_args(false);
    app.add_option("--root", options.root, "Folder that holds Data/IVE/avatar.ive and Data/Font/arial.ttf")
        ->type_name("FOLDER");
    app.add_flag("--verbose", options.verbose, "Say what is being done");
    app.add_flag("--quiet", options.quiet, "Errors only");

    addReadingOptions(app, options, texts);
    addPictureOptions(app, options, texts);
    addSheetOptions(app, options, texts);
    app.add_option("--export", options.exports,
                   "Write joint positions, centre of mass and contacts of every frame (" +
                       extensionsOf({FileKind::Table}) + "), or the dressed actors (" +
                       extensionsOf({FileKind::Scene}) + "); can be given more than once")
        ->type_name("FILE")
        ->allow_extra_args(false);
    app.add_option("--report", options.report, "Write how every actor was dressed (JSON)")->type_name("FILE");
    app.add_flag("--no-render", texts.noRender, "Load and report only");
}

}  // namespace KivPlayer
