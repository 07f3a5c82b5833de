#pragma once

#include <string>

namespace KivCharacterization {

/// The key of an actor in the tables: the host's index as decimal text, a negative one with its sign.
inline std::string actorKey(int actorIndex)
{
    return std::to_string(actorIndex);
}

inline std::string actorKey(unsigned int actorId)
{
    return std::to_string(actorId);
}

}  // namespace KivCharacterization
