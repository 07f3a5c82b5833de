#pragma once

#include <array>
#include <vector>

#include "host/KivReader/humanoid/recognition/bonetree.h"

namespace KivReader {

/// All that recognition looks at.
struct Evidence
{
    const MotionFigure& figure;
    const PosedFrames& posed;
    const BoneTree& tree;
    const std::vector<NameHint>& hints;
};

/// A place on the way down a limb.
struct Station
{
    std::size_t joint = 0;  ///< of those that coincide here the last one that turns: it has the turns of all
    std::size_t named = 0;  ///< the one whose name counts
    std::size_t end = 0;    ///< the one to take where a limb ends here: not beyond a fork
    int fan = 0;            ///< how many chains of more than one joint go on from here
    bool turns = false;     ///< of those that coincide one has rotations of its own
    double at = 0.0;        ///< along the bones, from the fork
    double bend = 0.0;      ///< how much the angle between the bones that meet here changes, in radians
    bool isBeyond = false;  ///< an end site, or a joint that its name calls an end
    bool isUnseen = false;  ///< nothing stands there: where a last joint without an end site may end
};

/// The likeliest way from a fork down to an end.
struct Chain
{
    std::size_t first = 0;  ///< the fork's child
    std::vector<Station> stations;
};

Chain chainFrom(const Evidence& evidence, std::size_t firstJoint);

enum class Limb : std::uint8_t
{
    Leg,
    Arm
};

/// Where on a chain the joints of a limb are.
struct LimbFit
{
    static constexpr int kNone = -1;

    int root = kNone;                 ///< the thigh or the upper arm: index of the station; so below
    int bend = kNone;                 ///< the shin or the forearm
    int end = kNone;                  ///< the foot or the hand; may be an end site
    int before = kNone;               ///< the collar; none with a leg
    int after = kNone;                ///< the toes; none with an arm
    double upper = 0.0, lower = 0.0;  ///< lengths
    double score = 0.0;

    double length() const { return upper + lower; }
};

/// The best few of all fits, the best one first.
std::vector<LimbFit> fitLimb(const Evidence& evidence, const Chain& chain, Limb limb);

}  // namespace KivReader
