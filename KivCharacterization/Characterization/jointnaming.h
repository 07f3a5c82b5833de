#pragma once

#include <osg/MatrixTransform>
#include <osg/observer_ptr>

#include <cstdint>
#include <map>
#include <string>

#include "KivCharacterization/naming.h"

namespace KivCharacterization {

/// The joint or segment that a piece belongs to: what follows the prefix, up to the first "#", or up to the
/// first "$" when there is no "#", or all of it when there is neither; empty for a name shorter than the
/// prefix.
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

/// Where fitting left the holders of the torso and hand pieces, by the pieces' full names. One table for
/// the process, filled with its 18 names when the module is loaded. Entries only watch: one whose transform
/// is gone reads as null. Not locked: fitting runs once at a time.
class SpecialJointTable
{
public:
    using Entries = std::map<std::string, osg::observer_ptr<osg::MatrixTransform>>;

    static SpecialJointTable& instance();

    /// Never fails: a name that is missing is entered with null.
    osg::MatrixTransform* find(const std::string& name);

    /// Replaces the transform of a name that the table has; other names are not entered.
    /// @return whether the table has the name.
    bool record(const std::string& name, osg::MatrixTransform* transform);

    const Entries& entries() const { return m_mapEntries; }

private:
    SpecialJointTable();

    Entries m_mapEntries;
};

}  // namespace KivCharacterization
