#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace KivBenchmark {

/// What reading a BVH text costs at least: the tree of joints and one block of numbers, nothing checked that
/// a well-formed text does not need checked. The limit that the reader is held against.
struct MinimalMotion
{
    struct Joint
    {
        std::string name;
        std::int32_t parent = -1;
        std::array<double, 3> offset{};
        std::vector<std::string_view> channels;  ///< into the text
    };

    std::vector<Joint> joints;  ///< end sites are joints without a name
    std::vector<float> values;
    std::size_t columns = 0;
    std::size_t frames = 0;
    double frameTime = 0.0;
};

/// The text must be well formed and outlive the motion.
MinimalMotion readMinimal(std::string_view text);

}  // namespace KivBenchmark
