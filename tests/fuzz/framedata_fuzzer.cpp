#include <fuzzer/FuzzedDataProvider.h>

#include <cstring>

#include "tests/fuzz/fuzzhost.h"

using namespace KivTestSupport;
using KivCommonDef::KIV_STICKCONTACT;
using KivMemoryShare::ActorFrameManager;

namespace {

constexpr unsigned int kActor = 1;

void writeSomething(FuzzedDataProvider& input)
{
    const unsigned int actor = input.ConsumeIntegralInRange<unsigned int>(0, 2);
    const std::size_t count = input.ConsumeIntegralInRange<std::size_t>(0, 140);
    const std::size_t size = input.ConsumeBool() ? sizeof(float) : sizeof(KIV_STICKCONTACT);
    std::vector<std::uint8_t> bytes = input.ConsumeBytes<std::uint8_t>(count * size);
    const std::size_t whole = bytes.size() / size;
    if (size == sizeof(float)) {
        std::vector<float> values(whole);
        if (whole > 0) {
            std::memcpy(values.data(), bytes.data(), whole * size);
        }
        ActorFrameManager::Ins()->WriteActorGravity(actor, whole ? values.data() : nullptr, whole);
    } else {
        std::vector<KIV_STICKCONTACT> contacts(whole);
        if (whole > 0) {
            std::memcpy(contacts.data(), bytes.data(), whole * size);
        }
        ActorFrameManager::Ins()->WriteActorStickContact(actor, whole ? contacts.data() : nullptr, whole);
    }
}

void readBack()
{
    std::vector<float> values(ActorFrameManager::kGravityFloats);
    float* value = values.data();
    std::vector<KIV_STICKCONTACT> contacts(ActorFrameManager::kStickContacts);
    KIV_STICKCONTACT* contact = contacts.data();
    for (unsigned int actor = 0; actor < 3; ++actor) {
        int tag = 0;
        unsigned long long count = 0;
        ActorFrameManager::Ins()->ReadActorGravity(actor, &value, tag, count);
        KIV_EXPECT(count <= values.size());
        ActorFrameManager::Ins()->ReadActorStickContact(actor, &contact, tag, count);
        KIV_EXPECT(count <= contacts.size());
    }
}

/// A host with one actor, which stays over all inputs: frame data is all that changes.
class ActorHost : public FuzzHost
{
public:
    ActorHost()
    {
        KivTaskCommand::TaskCommand load;
        manager().createLoadBVHCommand(smallFigureBvh(), kActor, "Fuzzed", &load);
        KIV_EXPECT(load.run());
        KivRenderState::KivRenderStateManager::instance()->setCenterOfMassShow(true);
    }

    /// As after loading: no markers are shown, and there are no spheres of contacts.
    static void hideAll()
    {
        ActorFrameManager::Ins()->Clear();
        ActorFrameManager::Ins()->WriteActorStickContact(kActor, nullptr, 0);
        updateScene();
        ActorFrameManager::Ins()->Clear();
    }
};

}  // namespace

/// Any frame data, written and removed in any order between frames that show it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static ActorHost host;
    FuzzedDataProvider input(data, size);
    while (input.remaining_bytes() > 0) {
        switch (input.ConsumeIntegralInRange<int>(0, 3)) {
            case 0:
                ActorFrameManager::Ins()->RemoveActor(input.ConsumeIntegralInRange<unsigned int>(0, 2));
                break;
            case 1:
                FuzzHost::updateScene();
                break;
            default:
                writeSomething(input);
        }
        readBack();
    }
    FuzzHost::updateScene();
    ActorHost::hideAll();
    return 0;
}
