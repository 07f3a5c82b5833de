// Overlays of one actor, a frame's worth: centre of mass, 20 contacts, name. The actor stands still; its
// update traversal is measured alone and with the writing of the frame's data.
#include <benchmark/benchmark.h>

#include <osgUtil/UpdateVisitor>

#include <array>

#include "KivMemoryShare/actorframemanager.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "benchmarks/support/figuretext.h"
#include "benchmarks/support/modulehost.h"

namespace {

using namespace KivBenchmark;
using KivMemoryShare::ActorFrameManager;

constexpr unsigned kActor = 7;
constexpr std::size_t kContacts = 20;

void publish(float height)
{
    const float centre[3] = {1.0f, height, 2.0f};
    std::array<KivCommonDef::KIV_STICKCONTACT, kContacts> contacts{};
    for (std::size_t i = 0; i < kContacts; ++i)
        contacts[i] = {
            0.01f * static_cast<float>(i), 0.01f * height, 0.1f, static_cast<std::uint8_t>(i % 2), {}};
    ActorFrameManager::Ins()->WriteActorGravity(kActor, centre, 3);
    ActorFrameManager::Ins()->WriteActorStickContact(kActor, contacts.data(), kContacts);
}

void overlays(benchmark::State& state)
{
    const ModuleHost host;
    host.load(hierarchyText(Props::None), kActor);
    host.load(hierarchyText(Props::None), kActor + 1);  // labels show from two actors on
    KivRenderState::KivRenderStateManager::instance()->setCenterOfMassShow(true);
    osg::Node& actor = *host.scene().getChild(0);
    const osg::ref_ptr<osgUtil::UpdateVisitor> visitor = new osgUtil::UpdateVisitor;
    publish(90.0f);
    host.scene().accept(*visitor);
    const bool writes = state.range(0) != 0;
    float height = 90.0f;
    for (auto _ : state) {
        if (writes)
            publish(height += 0.001f);
        actor.accept(*visitor);
    }
    if (actor.asGroup()->getChild(2)->asGroup()->getNumChildren() != kContacts)
        state.SkipWithError("there is another number of contacts");
}

BENCHMARK(overlays)->Name("overlays/frame")->Arg(0);
BENCHMARK(overlays)->Name("overlays/frame with data")->Arg(1);

}  // namespace
