#pragma once

#include <cstddef>
#include <string>

namespace KivBenchmark {

/// The figure that the shipped avatar is made for, with one props joint: 60 joints of three rotations in the
/// order Z-X-Y, the first with positions.
constexpr std::size_t kJoints = 60;
constexpr std::size_t kColumns = 3 * kJoints + 3;

/// What the column of a row holds: smooth, and the same in every run.
double motionValue(std::size_t row, std::size_t column);

enum class Props
{
    Left,
    None  ///< 59 joints
};

/// The figure as BVH, without motion.
std::string hierarchyText(Props props = Props::Left);

/// The figure with rows of motion, six decimals each, as exporters write them.
std::string motionText(std::size_t rows, double frameTime = 1.0 / 120.0);

}  // namespace KivBenchmark
