#pragma once

#include <osg/Vec3d>

#include <map>
#include <string>
#include <vector>

namespace KivPlayer {

/// The player's own reading of an avatar file: what a skeleton could wear, to be compared with what it does
/// wear.
struct AvatarFile
{
    struct Segment
    {
        double length = 0.0;
        osg::Vec3d offset;
    };

    std::map<std::string, std::vector<std::string>> joints;  ///< joint to the full names of its pieces
    std::map<std::string, Segment> segments;                 ///< "parent&child", the avatar's frame and unit

    bool isEmpty() const { return joints.empty(); }

    /// Empty where the file cannot be read.
    static AvatarFile read(const std::string& path);
};

}  // namespace KivPlayer
