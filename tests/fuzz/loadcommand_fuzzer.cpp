#include "tests/fuzz/fuzzhost.h"

using namespace KivTestSupport;

/// Any text in a load command: a dressed actor that a frame can show, or a clean refusal that leaves the
/// scene as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static FuzzHost host;
    const std::string text(reinterpret_cast<const char*>(data), size);
    KivTaskCommand::TaskCommand load;
    KIV_EXPECT(FuzzHost::manager().createLoadBVHCommand(text, 1, "Fuzzed", &load));
    const bool loaded = load.run();
    KIV_EXPECT(FuzzHost::scene().getNumChildren() == (loaded ? 1u : 0u));
    KIV_EXPECT(FuzzHost::playback().animationCount() == (loaded ? 1u : 0u));
    KIV_EXPECT(KivRenderState::KivRenderStateManager::instance()->getCharacterizationState() ==
               KivCharacterizationCommonDef::CharacterizationReady);
    if (loaded) {
        FuzzHost::playback().setTime(0.3);
        FuzzHost::updateScene();
        FuzzHost::scene().getBound();
    } else {
        KIV_EXPECT(!KivReader::ReaderWriterBVH::lastError().empty());
    }
    KivTaskCommand::TaskCommand removal;
    FuzzHost::manager().ClearOrRemoveActor(&removal, 0, 0);
    KIV_EXPECT(removal.run() && FuzzHost::scene().getNumChildren() == 0);
    FuzzHost::clear();
    return 0;
}
