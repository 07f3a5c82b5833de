#pragma once

#include <string>
#include <vector>

#include "host/KivReader/humanoid/recognition/bodysearch.h"

namespace KivReader {

/// Whether a body is a person's.
struct PersonCheck
{
    std::string whyNot;               ///< empty for a person
    double confidence = 1.0;          ///< 0 to 1, of proportions and posture
    std::vector<std::string> doubts;  ///< what is unusual
};

PersonCheck checkPerson(const Evidence& evidence, const std::vector<LimbPair>& pairs, const Body& body);

/// Why there is no body at all.
std::string whyNoBody(const Evidence& evidence, const std::vector<LimbPair>& pairs);

}  // namespace KivReader
