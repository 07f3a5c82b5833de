#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "apps/kivplayer/report/fitreport.h"
#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/window/state/framepace.h"
#include "apps/kivplayer/window/state/keytable.h"
#include "apps/kivplayer/window/state/propswatch.h"
#include "apps/kivplayer/window/state/transport.h"

namespace KivPlayer {

/// Which overlays are on.
struct ShownNow
{
    bool names = false;
    bool centreOfMass = false;
    bool contacts = false;
    bool skeleton = false;
    bool grid = true;
    bool draggers = false;
    bool contactDraggers = false;
    bool fit = false;
    bool help = false;
    bool statistics = false;
};

struct LogLine
{
    std::string text;
    bool isError = false;
};

/// A place in the window, pixels from its top left corner.
struct Place
{
    float x = 0, y = 0, width = 0, height = 0;
};

/// What the panels show and what they may ask for. They describe themselves between frames; everything that
/// changes the scene goes out as a command and is done later.
class Desk
{
public:
    virtual ~Desk() = default;

    virtual void perform(Action action) = 0;
    virtual void load(const std::string& file) = 0;
    /// Loads a file in place of an actor, which stays if the file cannot be read.
    virtual void replace(unsigned actor, const std::string& file) = 0;
    virtual void remove(unsigned actor) = 0;
    virtual void rename(unsigned actor, const std::string& name) = 0;
    virtual void setVisible(unsigned actor, bool visible) = 0;
    /// When the actor starts on the clock, seconds.
    virtual void setOffset(unsigned actor, double seconds) = 0;
    virtual void follow(std::optional<unsigned> actor) = 0;
    virtual void showDragger(const WatchedProps& props, bool shown) = 0;
    virtual void showContactDragger(const WatchedProps& props, bool shown) = 0;
    virtual void place(const WatchedProps& props) = 0;
    virtual void paintContact(const std::string& joint, const float* colour) = 0;

    virtual const std::map<unsigned, LoadedActor>& actors() const = 0;
    virtual bool isVisible(unsigned actor) const = 0;
    virtual std::optional<unsigned> followed() const = 0;
    virtual const ShownNow& shown() const = 0;
    virtual bool shadows() const = 0;
    virtual const FrameTimes& frameTimes() const = 0;
    virtual std::string status() const = 0;
    virtual const std::vector<LogLine>& log() const = 0;
    /// Of the actors that are there now.
    virtual const FitReport& fitReport() = 0;

    Transport transport;
    PropsWatch props;
    std::map<std::string, Place> places;  ///< of the controls that were described last, by name
    std::string control;                  ///< that of them the keyboard works; empty: none
};

}  // namespace KivPlayer
