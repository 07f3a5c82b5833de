#pragma once

#include <random>
#include <string>

namespace KivTestSupport {

/// One to three bytes changed; the same ones for the same seed.
inline std::string corrupted(std::string bytes, unsigned int seed)
{
    std::mt19937 random(seed);
    for (auto changes = 1 + random() % 3; changes > 0; --changes) {
        const std::size_t place = random() % bytes.size();
        bytes[place] = static_cast<char>(random() % 256);
    }
    return bytes;
}

}  // namespace KivTestSupport
