#pragma once

#include <string>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"
#include "KivReader/humanoidprofile.h"
#include "host/KivReader/humanoid/jointmatching.h"

namespace KivReader {

/// Whether a motion is a person's, and which of its joints is which.
struct Recognition
{
    JointMatching matching;  ///< what was found, also where it is no person
    bool isHumanoid = false;
    std::string whyNot;       ///< in words for people; empty where it is one
    double confidence = 0.0;  ///< 0 to 1: the least sure of the joints that a person needs
    std::vector<ProfileRecord::Evidence> evidence;  ///< of every joint in `matching`, in the avatar's order
};

/// Weighs names, structure, lengths and motion against each other. A dialect of the user's own overrules them
/// all. Linear in joints; looks at a bounded number of frames. Neither the order of children nor the axes,
/// the unit or the pose with all channels 0 make a difference.
KIV_READER_API Recognition recognise(const MotionDocument& document, const ProfileTable& table);

}  // namespace KivReader
