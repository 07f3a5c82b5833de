#pragma once

#include <osg/Node>
#include <osgDB/Options>

#include <string>

#include "KivAnimation/animation.h"
#include "KivCommonDef/sharedlibrary.h"
#include "KivReader/humanoidprofile.h"

namespace KivReader {

/// Turns BVH text into a motion skeleton and its animation. All operations may be called from any thread.
class KIV_READER_API ReaderWriterBVH
{
public:
    /// Builds a group that holds a KivAnimation::Skeleton of KivAnimation::Bones, Z-up, and the animation
    /// that poses them. Every bone carries its rest matrix; the root joint carries an UpdateBone and is
    /// reached along first children. An end site becomes a bone. A hierarchy without motion is a skeleton at
    /// rest.
    ///
    /// @param options      null: the default options are used. Their option string may ask for the profile
    /// step that
    ///                     makes any humanoid ready for dressing; its words are those of profileOptionsFrom.
    /// @param node         receives the group, with reference count 0, for the caller to hold.
    /// @param animation    receives the animation, likewise.
    /// @param name         the qualifier of the bones' names; an empty one is filled with the root joint's
    /// name.
    /// @param qualifyNames whether bones are called `<name>#<joint>` or by the joint's name alone.
    /// @return false, and nothing touched, for a text that is refused or a null out-pointer; lastError() says
    /// why.
    static bool readBVHNode(const std::string& text, const osgDB::Options* options, osg::Node** node,
                            KivAnimation::Animation** animation, std::string& name, bool qualifyNames);

    /// Forgets the last error and the last profile. The default options stay.
    static void resetKivReader();

    /// Why the last reading, on whatever thread, was refused: "line 12, column 5: …"; empty after a success.
    static std::string lastError();

    /// What the last reading, on whatever thread, did to the file's joints; an empty record after a refusal.
    static ProfileRecord lastProfile();

    /// The options of a call that passes none; none at first. Null takes them away.
    static void setDefaultOptions(const osgDB::Options* options);
};

}  // namespace KivReader
