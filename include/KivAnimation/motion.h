#pragma once

#include <osg/Quat>
#include <osg/Vec3f>
#include <osg/observer_ptr>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "KivAnimation/bone.h"
#include "KivAnimation/updatebone.h"

namespace KivAnimation {

/// Motion as it was recorded: one contiguous block, a row a frame, a column a channel. What a column means is
/// the business of the pose program; the numbers stay as the file has them (degrees, the file's length unit).
struct MotionTable
{
    std::vector<float> values;  ///< rows × columns, row by row
    std::size_t columns = 0;
    std::size_t frames = 0;
    double frameTime = 0.0;  ///< seconds from one row to the next
};

/// One elementary move of a joint's local frame. A joint's moves are carried out in order from the parent to
/// the joint, each in the frame that the earlier ones have left.
struct PoseStep
{
    enum class Kind : std::uint8_t
    {
        Translate,  ///< by a fixed vector
        Rotate,     ///< by a fixed rotation
        Shift,      ///< along an axis, by a column's value times the factor
        Turn        ///< about an axis, by a column's value in degrees times the factor
    };

    Kind kind = Kind::Translate;
    std::uint8_t axis = 0;     ///< 0 x, 1 y, 2 z of the scene's frame; Shift and Turn
    std::uint32_t column = 0;  ///< Shift and Turn
    float factor = 1.0f;       ///< Shift and Turn: unit and sense
    osg::Vec3f vector;         ///< Translate: scene units
    osg::Quat rotation;        ///< Rotate
};

/// How a table's row becomes the local matrices of a skeleton's bones.
struct PoseProgram
{
    struct Joint
    {
        Bone* bone = nullptr;                  ///< alive when the program is handed over; null: not posed
        osg::observer_ptr<UpdateBone> update;  ///< of the root joint; elsewhere empty
        std::int32_t parent = -1;  ///< index into joints, below this joint's own; -1 under the skeleton
        std::uint32_t firstStep = 0;
        std::uint32_t stepCount = 0;
    };

    std::vector<Joint> joints;  ///< parents before children
    std::vector<PoseStep> steps;
};

}  // namespace KivAnimation
