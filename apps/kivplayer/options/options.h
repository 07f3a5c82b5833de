#pragma once

#include <osg/Vec3d>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/kivplayer/options/fileformats.h"
#include "apps/kivplayer/options/outputnames.h"
#include "apps/kivplayer/options/overlays.h"

namespace KivPlayer {

/// What the program ends with.
enum ExitCode : int
{
    ExitDone = 0,
    ExitFailed = 1,  ///< something could not be read, dressed or written; the rest was done
    ExitUsage = 2,
    ExitDifferent = 3  ///< a picture differs from its reference
};

/// No actor starts further from the beginning of the clock, earlier or later: a day, in seconds.
constexpr double kMaxOffset = 86400.0;

/// A direction to look from, relative to the way that the figures face.
struct ViewAngles
{
    double azimuth = 0.0;    ///< radians from the figures' front towards their left hand
    double elevation = 0.0;  ///< radians above the horizon
};

struct Options
{
    std::vector<std::string> motions;
    std::vector<std::string> names;        ///< labels, in the order of the motions
    std::map<unsigned, double> offsets;    ///< when a motion starts on the shared clock, seconds; else at 0
    std::string root;                      ///< empty: beside the program or where it is installed
    std::string ownProgram;                ///< this program, to try a given root's avatar; empty: untried
    std::string reading = "profile=auto";  ///< how skeletons from elsewhere are read, as the reader's words
    std::string aliasTable;                ///< the file among them; empty: none
    std::string aliasTableToWrite;  ///< where what was recognised is written; empty: nowhere, "-": stdout
    std::string report;
    std::vector<std::string> exports;  ///< tables and scenes of the actors
    std::optional<OutputNames> output;
    FileFormat format = FileFormat::None;  ///< of the output
    std::string contactSheet;              ///< the folder for one; empty: none
    int moments = 4;                       ///< of every motion, on a contact sheet
    bool window = false;                   ///< nothing else is asked for, and there is a display
    bool watch = false;                    ///< files that change are loaded again
    std::string stateFile;                 ///< where a window keeps writing what it shows; empty: nowhere
    bool render = true;
    bool verbose = false;
    bool quiet = false;

    int width = 1280;
    int height = 720;
    int samples = 0;  ///< per pixel and direction; 0: what the size allows
    double fps = 30.0;
    std::optional<double> time;      ///< seconds
    std::optional<long long> frame;  ///< of the file, from 0
    std::optional<std::pair<double, double>> range;

    ViewAngles view{0.55, 0.16};
    std::optional<osg::Vec3d> cameraPosition;
    std::optional<osg::Vec3d> cameraTarget;
    std::optional<std::size_t> follow;  ///< the actor that the camera follows
    OverlaySet shown;                   ///< names unset: the module shows them from the second actor on

    std::string reference;
    std::string referenceDifference;  ///< where the difference is painted if there is one
    double referenceThreshold = 6.0;

    /// Whether the output shows a part of the motion and not one moment of it.
    bool isMoving() const { return output && (output->isSequence() || isVideo()); }
    bool isVideo() const { return isOfKind(format, FileKind::Video); }
};

/// Either options or what the program prints instead of starting.
struct Parsing
{
    std::optional<Options> options;
    bool asksForKeys = false;  ///< the program prints the keys of its window and ends
    int exitCode = ExitDone;
    std::string output;  ///< for stdout
    std::string error;   ///< for stderr
};

/// Parses a command line. Numbers are read the same way under every locale.
/// @param display whether there is one to open a window on.
Parsing parseOptions(int argc, const char* const* argv, bool display = false);

}  // namespace KivPlayer
