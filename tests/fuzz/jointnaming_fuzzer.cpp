#include <cstddef>
#include <cstdint>
#include <string>

#include "KivCharacterization/Characterization/jointnaming.h"
#include "tests/fuzz/expectation.h"

using namespace KivCharacterization;

/// Any name: every question about it is answered, and the answers agree with each other.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string name(reinterpret_cast<const char*>(data), size);
    const std::string normalised = NormaliseJointName(name);
    KIV_EXPECT(normalised.size() <= name.size());
    KIV_EXPECT(name.compare(name.size() - normalised.size(), std::string::npos, normalised) == 0);

    const std::string base = PieceBaseName(name);
    KIV_EXPECT(base.empty() || name.compare(kPiecePrefixLength, base.size(), base) == 0);
    KIV_EXPECT(base.find('#') == std::string::npos);

    const SegmentPieceKind kind = ClassifySegmentPiece(name);
    if (kind != SegmentPieceKind::None) {
        KIV_EXPECT(name.find(kind == SegmentPieceKind::Inner ? "#Inner$" : "#Outer$") != std::string::npos);
    }
    if (IsPropsJoint(normalised)) {
        KIV_EXPECT(normalised.size() >= std::string("Props").size());
    }
    KIV_EXPECT(SegmentKey(base, normalised).size() == base.size() + normalised.size() + 1);

    SpecialJointTable table = SpecialJointTable::instance();
    table.record(name, nullptr);
    KIV_EXPECT(table.entries().size() == 18);
    KIV_EXPECT(table.find(name) == nullptr);
    return 0;
}
