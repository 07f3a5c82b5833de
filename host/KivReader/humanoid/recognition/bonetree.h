#pragma once

#include <osg/Vec3d>

#include <cstdint>
#include <vector>

#include "host/KivReader/figure/figurepose.h"
#include "host/KivReader/humanoid/recognition/namehints.h"

namespace KivReader {

/// A figure in some frames of its motion, in the file's units.
struct PosedFrames
{
    std::vector<Placements> frames;  ///< without motion: all joints at their offsets
    bool isMotion = false;

    const osg::Vec3d& place(std::size_t frame, std::size_t joint) const { return frames[frame][joint].place; }
};

/// Frames over the whole motion, a bounded number.
PosedFrames poseFrames(const MotionDocument& document, const MotionFigure& figure);

/// The skeleton as lengths of bones: what does not depend on axes, unit, pose or the order of children.
struct BoneTree
{
    struct Bone
    {
        std::int32_t parent = -1;
        double length = 0.0;  ///< to the parent; 0 on the way from the root to the first fork
        double reach = 0.0;   ///< the longest way from here down; helpers count for less
        double span = 0.0;    ///< the same from the parent down
        int words = 0;        ///< most joints on a way down whose names are parts of limbs
        std::uint32_t firstChild = 0;
        std::uint32_t childCount = 0;
        bool isEnd = false;   ///< an end site
        bool turns = false;   ///< its own rotation is not none in every frame
        bool varies = false;  ///< its own rotation is not the same in every frame
        bool isTip = false;   ///< the name or the lack of anything that turns says that a chain ends here
    };

    std::vector<Bone> bones;              ///< as the figure's joints
    std::vector<std::uint32_t> children;  ///< of all bones, those of one side by side
    double size = 0.0;                    ///< the longest way from one end to another

    std::size_t parentOf(std::size_t bone) const { return static_cast<std::size_t>(bones[bone].parent); }
    std::uint32_t child(std::size_t bone, std::size_t i) const
    {
        return children[bones[bone].firstChild + i];
    }
    /// Joints as near as this to their parent coincide with it.
    bool coincides(std::size_t bone) const { return bones[bone].length <= 0.003 * size; }
    std::size_t commonAncestor(std::size_t one, std::size_t other) const;
    bool isBelow(std::size_t bone, std::size_t ancestor) const;
    /// From an ancestor down, along the bones.
    double way(std::size_t ancestor, std::size_t bone) const;
};

BoneTree makeBoneTree(const MotionFigure& figure, const PosedFrames& posed,
                      const std::vector<NameHint>& hints);

}  // namespace KivReader
