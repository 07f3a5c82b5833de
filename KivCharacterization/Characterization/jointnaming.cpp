#include "KivCharacterization/Characterization/jointnaming.h"

namespace KivCharacterization {

const std::string kPiecePrefix = "Joint:";
const std::size_t kPiecePrefixLength = 6;

bool HasPiecePrefix(const std::string& name)
{
    return name.compare(0, kPiecePrefixLength, kPiecePrefix) == 0;
}

std::string_view UnqualifiedJointName(std::string_view name)
{
    const std::size_t mark = name.find('#');
    return mark == std::string_view::npos ? name : name.substr(mark + 1);
}

std::string NormaliseJointName(const std::string& name)
{
    return std::string(UnqualifiedJointName(name));
}

std::string SegmentKey(std::string_view parent, std::string_view child)
{
    std::string key(parent.size() + 1 + child.size(), '&');
    parent.copy(key.data(), parent.size());
    child.copy(key.data() + parent.size() + 1, child.size());
    return key;
}

std::string_view PieceBase(std::string_view fullName)
{
    if (fullName.size() < kPiecePrefixLength) {
        return {};
    }
    const std::string_view body = fullName.substr(kPiecePrefixLength);
    const std::size_t tagMark = body.find('#');
    return body.substr(0, tagMark != std::string_view::npos ? tagMark : body.find('$'));
}

std::string PieceBaseName(const std::string& fullName)
{
    return std::string(PieceBase(fullName));
}

SegmentPieceKind ClassifySegmentPiece(const std::string& fullName)
{
    const std::size_t tagMark = fullName.find('#');
    if (tagMark == std::string::npos) {
        return SegmentPieceKind::None;
    }
    const std::size_t endMark = fullName.find('$');
    if (endMark == std::string::npos || endMark < tagMark) {
        return SegmentPieceKind::None;
    }
    const std::string_view tag = std::string_view(fullName).substr(tagMark + 1, endMark - tagMark - 1);
    if (tag == "Inner") {
        return SegmentPieceKind::Inner;
    }
    return tag == "Outer" ? SegmentPieceKind::Outer : SegmentPieceKind::None;
}

bool IsPropsJoint(const std::string& normalisedName)
{
    return normalisedName.find("Props") != std::string::npos &&
           normalisedName.find("End") == std::string::npos;
}

namespace {

// Makes the table while the module is being loaded, before any fitting.
[[maybe_unused]] const SpecialJointTable& tableAtLoad = SpecialJointTable::instance();

}  // namespace

const std::array<std::string, 4>& TorsoPieceNames()
{
    static const std::array<std::string, 4> names = {"Joint:Spine3&Neck$", "Joint:Hips&Spine$",
                                                     "Joint:Spine2$", "Joint:Spine1$"};
    return names;
}

const std::array<std::string, 14>& HandPieceNames()
{
    static const std::array<std::string, 14> names = {
        "Joint:RightHand$",   "Joint:LeftHand$",    "Joint:LeftHand#1$",  "Joint:LeftHand#2$",
        "Joint:LeftHand#3$",  "Joint:LeftHand#4$",  "Joint:LeftHand#5$",  "Joint:LeftHand#6$",
        "Joint:RightHand#1$", "Joint:RightHand#2$", "Joint:RightHand#3$", "Joint:RightHand#4$",
        "Joint:RightHand#5$", "Joint:RightHand#6$"};
    return names;
}

SpecialJointTable& SpecialJointTable::instance()
{
    static SpecialJointTable table;
    return table;
}

SpecialJointTable::SpecialJointTable()
{
    for (const std::string& name : TorsoPieceNames()) {
        m_mapEntries[name] = nullptr;
    }
    for (const std::string& name : HandPieceNames()) {
        m_mapEntries[name] = nullptr;
    }
}

osg::MatrixTransform* SpecialJointTable::find(const std::string& name)
{
    return m_mapEntries[name].get();
}

SpecialJointTable::Entry* SpecialJointTable::entry(const std::string& name)
{
    const auto found = m_mapEntries.find(name);
    return found != m_mapEntries.end() ? &*found : nullptr;
}

bool SpecialJointTable::record(const std::string& name, osg::MatrixTransform* transform)
{
    Entry* const known = entry(name);
    if (known) {
        known->second = transform;
    }
    return known != nullptr;
}

}  // namespace KivCharacterization
