#pragma once

#include <map>
#include <string>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"
#include "host/KivReader/humanoid/profiletable.h"

namespace KivReader {

struct MotionFigure;

/// Which joints of a file are which of the avatar's.
struct JointMatching
{
    std::string dialect;
    std::map<std::string, std::size_t> joints;  ///< the avatar's name → index into the file's joints
    std::map<std::string, std::size_t> toes;    ///< the avatar's foot → the file's toe joint; no end site
    std::vector<std::size_t> excluded;          ///< joints that a table says are none of the avatar's
    bool isUsers = false;                       ///< the dialect is the user's own
    std::vector<std::string> ambiguous;         ///< sentences: what may be one as well as the other
    std::vector<std::string> warnings;

    bool has(const std::string& name) const { return joints.count(name) > 0; }
    std::size_t at(const std::string& name) const { return joints.at(name); }
};

/// Names alone decide: exact ones, and those of the first dialect with a signature that fits.
KIV_READER_API JointMatching matchJoints(const MotionFigure& figure, const ProfileTable& table);

/// The avatar's names that are spelled most like a joint's, for a person to choose from: three at most, none
/// where nothing is alike, and never the joint's own name.
KIV_READER_API std::vector<std::string> nearestNames(const std::string& name, const RestFigure& figure);

}  // namespace KivReader
