#pragma once

#include <osg/observer_ptr>
#include <osg/ref_ptr>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "KivAnimation/motion.h"
#include "host/KivAnimation/affinerows.h"
#include "host/KivAnimation/bonewatch.h"
#include "host/KivAnimation/rowprogram.h"

namespace KivAnimation {

/// Poses one skeleton from the rows of its table. Bones are watched, not held.
class Poser
{
public:
    /// @throws std::invalid_argument as RowProgram does.
    Poser(const PoseProgram& program, std::size_t columns);

    /// Poses between two rows, `fraction` of the way from the first to the second; exactly the first row
    /// where the fraction is 0. Does nothing once the skeleton's root joint is gone. Allocates nothing.
    void pose(const MotionTable& table, std::size_t row, double fraction);

private:
    static constexpr std::size_t kNoRow = std::numeric_limits<std::size_t>::max();

    struct EvaluatedRow
    {
        std::size_t row = kNoRow;
        std::vector<LocalPose> poses;
    };

    struct Joint
    {
        Bone* bone = nullptr;  ///< null once it is gone
        std::int32_t parent = -1;
        bool fixed = false;
        osg::ref_ptr<UpdateBone> update;
    };

    void provideRow(EvaluatedRow& wanted, const MotionTable& table, std::size_t row);
    void askForBone(std::size_t joint) const;
    void poseBones(bool between, float fraction);
    void poseJoint(const Joint& joint, const LocalPose& pose);
    void poseFixedJoint(const Joint& joint, const AffineRows& local);
    static void setMatrix(const Joint& joint, const AffineRows& local);
    void placeInSkeleton(const Joint& joint, const AffineRows& local);

    static std::vector<Joint> jointsOf(const PoseProgram& program, const RowProgram& compiled);

    RowProgram m_program;
    std::vector<Joint> m_joints;
    BoneWatches m_watches;  ///< of these joints
    osg::observer_ptr<Bone> m_root;
    EvaluatedRow m_first;  ///< rows are kept: in ordinary playback the second becomes the first
    EvaluatedRow m_second;
    std::vector<AffineRows> m_fixedRows;  ///< of the fixed joints, at their index
};

}  // namespace KivAnimation
