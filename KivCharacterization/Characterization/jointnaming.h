#pragma once

#include <osg/MatrixTransform>
#include <osg/observer_ptr>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace KivCharacterization {

/// What starts the name of every mesh piece of an avatar.
extern const std::string kPiecePrefix;
extern const std::size_t kPiecePrefixLength;

/// Whether a name begins with the piece prefix; a name that is the prefix alone does.
bool HasPiecePrefix(const std::string& name);

/// The part of a skeleton joint's name that counts: what follows the qualifier, the text up to the first "#",
/// or all of it. It lives as long as the name.
std::string_view UnqualifiedJointName(std::string_view name);

/// The same as a text of its own.
std::string NormaliseJointName(const std::string& name);

/// The key of the bone segment between two joints: `<parent>&<child>`.
std::string SegmentKey(std::string_view parent, std::string_view child);

/// The joint or segment that a piece belongs to: what follows the prefix, up to the first "#", or up to the
/// first "$" when there is no "#", or all of it when there is neither; empty for a name shorter than the
/// prefix. It lives as long as the full name.
std::string_view PieceBase(std::string_view fullName);

/// The same as a text of its own.
std::string PieceBaseName(const std::string& fullName);

/// How a piece follows its bone segment.
enum class SegmentPieceKind : std::uint32_t
{
    None = 0,   ///< it does not: it sits at its joint
    Inner = 1,  ///< turned and stretched along the segment
    Outer = 2   ///< likewise
};

/// Told by the text strictly between the first "#" and the first "$" of a piece's full name, compared
/// exactly. A name that lacks either mark, or has them the other way round, is of no kind.
SegmentPieceKind ClassifySegmentPiece(const std::string& fullName);

/// Whether a skeleton joint carries a props: its normalised name contains "Props" but not "End".
bool IsPropsJoint(const std::string& normalisedName);

/// The pieces that are scaled by the actor's proportions, by their full names, in the order of scaling.
const std::array<std::string, 4>& TorsoPieceNames();
const std::array<std::string, 14>& HandPieceNames();

/// Orders names that begin alike, most of which their lengths tell apart.
struct ShorterFirst
{
    bool operator()(const std::string& a, const std::string& b) const
    {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    }
};

/// Where fitting left the holders of the torso and hand pieces, by the pieces' full names. One table for
/// the process, filled with its 18 names when the module is loaded. Entries only watch: one whose transform
/// is gone reads as null. Not locked: fitting runs once at a time.
class SpecialJointTable
{
public:
    using Entries = std::map<std::string, osg::observer_ptr<osg::MatrixTransform>, ShorterFirst>;
    using Entry = Entries::value_type;

    static SpecialJointTable& instance();

    /// Never fails: a name that is missing is entered with null.
    osg::MatrixTransform* find(const std::string& name);

    /// @return null for a name that the table has not; an entry stays where it is.
    Entry* entry(const std::string& name);

    /// Replaces the transform of a name that the table has; other names are not entered.
    /// @return whether the table has the name.
    bool record(const std::string& name, osg::MatrixTransform* transform);

    const Entries& entries() const { return m_mapEntries; }

private:
    SpecialJointTable();

    Entries m_mapEntries;
};

}  // namespace KivCharacterization
