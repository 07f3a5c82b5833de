// Many actors: time and memory an actor of loading, posing and removing 10, 100 and 1 000 of them, all of one
// motion and with light pieces; and the memory of actors in the shipped dress.
#include <benchmark/benchmark.h>

#include "benchmarks/support/figuretext.h"
#include "benchmarks/support/meshavatar.h"
#include "benchmarks/support/modulehost.h"
#include "benchmarks/support/stage.h"
#include "benchmarks/support/threadclock.h"
#include "tests/soak/heapuse.h"

namespace {

using namespace KivBenchmark;
using KivTestSupport::heapInUse;

constexpr double kFrameTime = 1.0 / 60.0;
constexpr int kFrames = 20;

const std::string& motion()
{
    static const std::string s_text = motionText(16, kFrameTime);
    return s_text;
}

void life(benchmark::State& state)
{
    const int actors = static_cast<int>(state.range(0));
    double loading = 0, posing = 0, removing = 0, bytes = 0;
    for (auto _ : state) {
        const ModuleHost host(meshAvatar(8));
        host.load(motion(), actors);  // the first one fills what is filled once
        const double heapBefore = heapInUse();
        const double start = threadSeconds();
        host.loadMany(motion(), actors);
        const double loaded = threadSeconds();
        bytes += heapInUse() - heapBefore;
        Stage stage(kFrameTime);
        stage.scene().addChild(&host.scene());
        const double beforePosing = threadSeconds();
        for (int frame = 0; frame < kFrames; ++frame)
            stage.showRow(frame);
        const double posed = threadSeconds();
        for (int actor = 0; actor < actors; ++actor)
            host.remove(actor);
        const double removed = threadSeconds();
        loading += loaded - start;
        posing += (posed - beforePosing) / kFrames;
        removing += removed - posed;
        state.SetIterationTime(loaded - start + removed - posed);
        if (host.scene().getNumChildren() != 1)
            state.SkipWithError("actors were left in the scene");
    }
    const double lives = static_cast<double>(state.iterations()) * actors;
    state.counters["load us"] = 1e6 * loading / lives;
    state.counters["pose us"] = 1e6 * posing / lives;
    state.counters["remove us"] = 1e6 * removing / lives;
    state.counters["bytes"] = bytes / lives;
}

void shippedMemory(benchmark::State& state)
{
    const int actors = 20;
    const std::string text = hierarchyText(Props::None);
    double bytes = 0, copyBytes = 0;
    for (auto _ : state) {
        const ModuleHost host;
        host.load(text, actors);
        const double before = heapInUse();
        host.loadMany(text, actors);
        const double loaded = heapInUse();
        const auto avatar = shippedAvatar();
        const double beforeCopies = heapInUse();
        std::vector<std::vector<osg::ref_ptr<osg::Node>>> copies;
        for (int i = 0; i < actors; ++i)
            copies.push_back(copyPieces(avatar));
        bytes = (loaded - before) / actors;
        copyBytes = (heapInUse() - beforeCopies) / actors;
    }
    state.counters["bytes"] = bytes;
    state.counters["bytes of the copies"] = copyBytes;
}

BENCHMARK(life)
    ->Name("scale/life")
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(shippedMemory)->Name("scale/memory")->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
