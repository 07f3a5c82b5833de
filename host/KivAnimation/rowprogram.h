#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "KivAnimation/motion.h"

namespace KivAnimation {

/// A joint's transform relative to its parent: turned by the unit quaternion x, y, z, w, then moved.
struct LocalPose
{
    float rotation[4] = {0.0f, 0.0f, 0.0f, 1.0f};
    float position[3] = {0.0f, 0.0f, 0.0f};
    float padding = 0.0f;
};

/// A pose program made ready for evaluating rows: the sines and cosines of all angles first, then the joints,
/// of which the usual shapes take a straight path.
class RowProgram
{
public:
    RowProgram() = default;

    /// @throws std::invalid_argument if a joint reaches beyond the steps, a parent does not come before its
    /// child or
    ///         a step asks for a column that the table lacks.
    RowProgram(const PoseProgram& program, std::size_t columns);

    std::size_t jointCount() const { return m_joints.size(); }

    /// True if no row changes the joint's local transform.
    bool isFixed(std::size_t joint) const { return m_joints[joint].shape == Shape::Fixed; }

    /// @param row   one row of the table that the program was made for.
    /// @param poses the results of prepare() or of an earlier row. Allocates nothing once the thread has
    /// evaluated
    ///              a program with as many turns.
    void evaluate(const float* row, LocalPose* poses) const;

    /// Results for evaluate() to fill in, with those of the fixed joints in place.
    std::vector<LocalPose> prepare() const;

private:
    enum class Shape : std::uint8_t
    {
        Fixed,       ///< the same in every row
        ThreeTurns,  ///< moved, then turned about three different axes
        General
    };

    /// Small, because it is read for every joint of every actor in every frame.
    struct Joint
    {
        Shape shape = Shape::General;
        std::uint8_t axes[3] = {0, 1, 2};  ///< ThreeTurns
        float parity = 1.0f;               ///< ThreeTurns: -1 where the axes are an odd permutation
        float position[3] = {0, 0, 0};     ///< ThreeTurns: where the shifts start
        std::uint32_t firstStep = 0;
        std::uint32_t stepCount = 0;  ///< ThreeTurns: of the shifts, which are the first steps
        std::uint32_t firstTurn = 0;  ///< into the sines and cosines
    };

    /// What the angles of a row come to, in the order of the program's turns.
    struct Angles
    {
        const float* sines;
        const float* cosines;
    };

    void compileJoint(const PoseProgram& program, const PoseProgram::Joint& source);
    bool compileThreeTurns(Joint& joint);
    LocalPose evaluateFixed(const Joint& joint) const;
    Angles lookUpAngles(const float* row) const;
    void evaluateThreeTurns(const Joint& joint, const float* row, const Angles& angles,
                            LocalPose& pose) const;
    void evaluateGeneral(const Joint& joint, const float* row, const Angles& angles, LocalPose& pose) const;

    std::vector<Joint> m_joints;
    std::vector<PoseStep> m_steps;
    std::vector<std::uint32_t> m_turnColumns;  ///< in the order of the program's turns
    std::vector<float> m_turnFactors;          ///< from a column's value to half the angle in full turns
};

}  // namespace KivAnimation
