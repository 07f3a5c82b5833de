#pragma once

#include <osg/Quat>
#include <osg/Vec3d>
#include <osg/Vec3f>

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "apps/kivplayer/options/overlays.h"

namespace KivPlayer {

/// What the user can ask for without saying more.
enum class Action
{
    TogglePlay,
    StepBack,
    StepForward,
    FirstFrame,
    LastFrame,
    Slower,
    Faster,
    ToggleLoop,
    CameraHome,
    FollowNext,
    Screenshot,
    NextPanel,
    Quit
};

struct ToggleOverlay
{
    Overlay overlay;
};

struct SetTime
{
    double seconds;
};

struct SetSpeed
{
    double factor;
};

struct LoadFile
{
    std::string file;
};

/// Loads a file in place of an actor, which stays if the file cannot be read.
struct ReplaceActor
{
    unsigned actor;
    std::string file;
};

struct RemoveActor
{
    unsigned actor;
};

struct RenameActor
{
    unsigned actor;
    std::string name;
};

struct ShowActor
{
    unsigned actor;
    bool shown;
};

/// When the actor starts on the clock.
struct OffsetActor
{
    unsigned actor;
    double seconds;
};

struct FollowActor
{
    std::optional<unsigned> actor;  ///< unset: nobody
};

/// Props are named with the actor's qualifier.
struct ShowDragger
{
    std::string prop;
    bool shown;
};

struct ShowContactDragger
{
    std::string prop;
    bool shown;
};

/// In the frame of the bone that carries the prop, scene units.
struct PoseProp
{
    std::string prop;
    osg::Vec3d position;
    osg::Quat rotation;
};

/// Marks a joint's contacts in this colour, on every actor.
struct PaintContact
{
    std::string joint;
    osg::Vec3f colour;
};

/// What keys and panels ask for, as data: it is collected while they are handled and done between frames.
using Request = std::variant<Action, ToggleOverlay, SetTime, SetSpeed, LoadFile, ReplaceActor, RemoveActor,
                             RenameActor, ShowActor, OffsetActor, FollowActor, ShowDragger,
                             ShowContactDragger, PoseProp, PaintContact>;
using Requests = std::vector<Request>;

}  // namespace KivPlayer
