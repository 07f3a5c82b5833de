#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "KivReader/motiondocument.h"
#include "tests/fuzz/expectation.h"

namespace {

void checkJoints(const KivReader::MotionDocument& document)
{
    std::size_t columns = 0;
    for (std::size_t i = 0; i < document.joints.size(); ++i) {
        const auto& joint = document.joints[i];
        KIV_EXPECT(i == 0 ? joint.parent == -1
                          : joint.parent >= 0 && static_cast<std::size_t>(joint.parent) < i);
        KIV_EXPECT(joint.channels.empty() || joint.firstColumn + joint.channels.size() <= document.columns);
        for (const double component : joint.offset) {
            KIV_EXPECT(std::isfinite(component));
        }
        columns += joint.channels.size();
    }
    KIV_EXPECT(columns == document.columns);
}

}  // namespace

/// Any bytes: a refusal with a reason, or a document whose numbers agree with each other.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const KivReader::MotionReading reading = KivReader::readMotionDocument(text);
    if (!reading.document) {
        KIV_EXPECT(!reading.error.text().empty());
        return 0;
    }
    const KivReader::MotionDocument& document = *reading.document;
    KIV_EXPECT(!document.joints.empty());
    checkJoints(document);
    KIV_EXPECT(document.values.size() == document.frames * document.columns);
    // Every number takes at least one letter and a space: more of them were never in the text.
    KIV_EXPECT(document.values.size() <= size);
    KIV_EXPECT(std::isfinite(document.frameTime) && document.frameTime >= 0);
    for (const float value : document.values) {
        KIV_EXPECT(std::isfinite(value));
    }
    return 0;
}
