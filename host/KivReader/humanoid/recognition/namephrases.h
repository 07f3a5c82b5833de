#pragma once

#include <string>
#include <vector>

#include "host/KivReader/humanoid/recognition/namehints.h"

namespace KivReader {

/// A name taken for one of a side.
struct SidedName
{
    Side side = Side::None;
    std::vector<std::string> words;  ///< without what told the side
    std::string key;                 ///< the same for the joint of the other side
};

/// Every way in which the words of a name may tell a side, the likeliest first.
std::vector<SidedName> sidedReadings(const std::vector<std::string>& words, const Vocabulary& vocabulary);

/// What the words of a name say, apart from the side.
NameHint understood(const std::vector<std::string>& words, const Vocabulary& vocabulary);

}  // namespace KivReader
