#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "KivReader/humanoidprofile.h"
#include "apps/kivplayer/content/avatarfile.h"
#include "apps/kivplayer/content/loadedactor.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// How one actor was dressed. Lengths in scene units, times in seconds.
struct ActorFit
{
    struct SkippedPiece
    {
        std::string piece;  ///< full name
        std::string reason;
    };
    struct Segment
    {
        std::string key;  ///< "parent&child"
        double avatarLength = 0.0;
        double actorLength = 0.0;      ///< at rest, as dressing measures it
        std::optional<double> factor;  ///< unset where the avatar's segment has no length
    };

    std::string file;
    std::string actorId;
    std::string name;
    bool isPerson = true;              ///< false: looked at and not recognised as one; wears nothing
    std::size_t joints = 0;            ///< bones, end sites included
    std::vector<std::string> matched;  ///< bones that the avatar knows
    std::vector<KivReader::ProfileRecord::Unmatched> unmatched;  ///< joints that the avatar does not know
    KivReader::ProfileRecord profile;                            ///< what reading did to the joints, and why
    std::size_t attached = 0;                                    ///< pieces that the skeleton wears
    std::vector<SkippedPiece> skipped;
    std::vector<Segment> segments;    ///< that both skeletons have
    std::optional<double> hipRatio;   ///< the actor's over the avatar's; sizes the torso
    std::optional<double> handRatio;  ///< likewise; sizes the hands
    std::size_t frames = 1;
    double frameTime = 0.0;
    std::vector<std::string> warnings;  ///< sentences, FILE:LINE:COLUMN first where there is a place
};

/// How every actor was dressed, and what went wrong: what report, summary and panels are made from.
struct FitReport
{
    std::vector<ActorFit> actors;
    std::vector<Diagnostic> errors;
};

/// Compares the dressed skeletons, as a host can see them, with the avatar's file. Between frames.
FitReport fitReportOf(const std::map<unsigned, LoadedActor>& actors, const AvatarFile& avatar,
                      const std::vector<Diagnostic>& errors = {});

}  // namespace KivPlayer
