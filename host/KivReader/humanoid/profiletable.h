#pragma once

#include <osg/Vec3d>

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"

namespace KivReader {

/// The avatar at rest, in the scene's axes: Z-up, facing -Y, left at +X, centimetres.
struct RestFigure
{
    struct Joint
    {
        std::string name, parent;
        osg::Vec3d offset;
    };

    std::vector<Joint> joints;  ///< parents first
    std::map<std::string, std::size_t> index;
    std::map<std::string, osg::Vec3d> ends;  ///< from the last joint of a chain to the chain's end

    bool has(const std::string& name) const { return index.count(name) > 0; }
    /// Of a joint that the figure has; so below.
    const Joint& joint(const std::string& name) const { return joints[index.at(name)]; }
    const osg::Vec3d& offset(const std::string& name) const { return joint(name).offset; }
    KIV_READER_API osg::Vec3d place(const std::string& name) const;
    /// How much higher the second joint is than the first.
    double rise(const std::string& from, const std::string& to) const
    {
        return place(to).z() - place(from).z();
    }
    /// From the ground to the crown.
    double height() const { return place("Head").z() + ends.at("Head").z(); }
};

/// How one producer names joints.
struct Dialect
{
    using Term = std::vector<std::string>;  ///< names of which one must be there
    using Signature = std::vector<Term>;    ///< terms that must all hold
    std::string name;
    std::vector<Signature> signatures;  ///< of which one must hold
    std::string prefix;
    std::vector<std::pair<std::string, std::string>> names;  ///< foreign, target; "-" for none
};

struct ProfileTable
{
    std::vector<Dialect> dialects;
    std::size_t usersDialects = 0;  ///< so many of the first ones are the user's own
    RestFigure figure;
};

/// Throws std::runtime_error that names the source and the line.
KIV_READER_API ProfileTable parseProfileTable(std::string_view text, const std::string& source);

/// The table that the library brings along.
KIV_READER_API const ProfileTable& builtInProfileTable();

/// The user's table on top of the library's; the library's alone for an empty path.
/// Throws std::runtime_error where the file cannot be read.
KIV_READER_API ProfileTable profileTableWith(const std::string& file);

/// Whether a name is what a pattern with "<n>" and "<_>" says.
KIV_READER_API bool matchesPattern(std::string_view pattern, std::string_view name);

/// What of the name follows a prefix pattern; the null view where it does not begin so.
std::string_view behindPrefix(std::string_view prefix, std::string_view name);

}  // namespace KivReader
