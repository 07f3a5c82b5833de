#include "KivCharacterization/Characterization/jointnaming.h"

#include <string_view>

namespace KivCharacterization {

std::string PieceBaseName(const std::string& fullName)
{
    if (fullName.size() < kPiecePrefixLength) {
        return {};
    }
    const std::string body = fullName.substr(kPiecePrefixLength);
    const std::size_t tagMark = body.find(kTagMark);
    return body.substr(0, tagMark != std::string::npos ? tagMark : body.find(kPieceEndMark));
}

SegmentPieceKind ClassifySegmentPiece(const std::string& fullName)
{
    const std::size_t tagMark = fullName.find(kTagMark);
    if (tagMark == std::string::npos) {
        return SegmentPieceKind::None;
    }
    const std::size_t endMark = fullName.find(kPieceEndMark);
    if (endMark == std::string::npos || endMark < tagMark) {
        return SegmentPieceKind::None;
    }
    const std::string_view tag = std::string_view(fullName).substr(tagMark + 1, endMark - tagMark - 1);
    if (tag == kInnerTag) {
        return SegmentPieceKind::Inner;
    }
    return tag == kOuterTag ? SegmentPieceKind::Outer : SegmentPieceKind::None;
}

namespace {

// Makes the table while the module is being loaded, before any fitting.
[[maybe_unused]] const SpecialJointTable& tableAtLoad = SpecialJointTable::instance();

}  // namespace

SpecialJointTable& SpecialJointTable::instance()
{
    static SpecialJointTable table;
    return table;
}

SpecialJointTable::SpecialJointTable()
{
    for (const std::string_view name : kTorsoPieces) {
        m_mapEntries[std::string(name)] = nullptr;
    }
    for (const std::string_view name : kHandPieces) {
        m_mapEntries[std::string(name)] = nullptr;
    }
}

osg::MatrixTransform* SpecialJointTable::find(const std::string& name)
{
    return m_mapEntries[name].get();
}

bool SpecialJointTable::record(const std::string& name, osg::MatrixTransform* transform)
{
    const auto entry = m_mapEntries.find(name);
    if (entry == m_mapEntries.end()) {
        return false;
    }
    entry->second = transform;
    return true;
}

}  // namespace KivCharacterization
