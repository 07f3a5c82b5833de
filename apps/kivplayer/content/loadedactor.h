#pragma once

#include <cstddef>
#include <string>

#include "KivReader/humanoidprofile.h"
#include "KivReader/motiondocument.h"
#include "apps/kivplayer/content/dressedactor.h"

namespace KivPlayer {

/// What the player knows of a motion file that has become an actor.
struct LoadedActor
{
    unsigned index = 0;
    std::string file;
    std::string name;
    double offset = 0.0;                 ///< when on the shared clock its first frame is shown, seconds
    KivReader::MotionDocument document;  ///< without its values
    KivReader::ProfileRecord profile;    ///< what reading did to the joints
    bool isPerson = true;                ///< false: looked at and not recognised as one; shown undressed
    DressedActor dressed;

    std::string id() const { return std::to_string(index); }
    std::size_t frames() const { return document.frames > 0 ? document.frames : 1; }
    double duration() const { return static_cast<double>(frames() - 1) * document.frameTime; }
    /// Times on the shared clock, seconds.
    double timeOf(double frame) const { return offset + frame * document.frameTime; }
    double end() const { return offset + duration(); }
};

/// For people: that a file is not recognised as a person, and why.
inline std::string notAPerson(const KivReader::ProfileRecord& profile)
{
    return "not recognised as a person: " + profile.whyNot;
}

}  // namespace KivPlayer
