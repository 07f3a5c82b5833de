// Commands on the calling thread, from prepare to finish. The skeletons come without motion, so that reading
// rows does not hide the rest.
#include <benchmark/benchmark.h>

#include <stdexcept>

#include "KivCharacterization/Characterization/modelloading.h"
#include "KivCharacterization/Characterization/namelabel.h"
#include "benchmarks/support/figuretext.h"
#include "benchmarks/support/leastdress.h"
#include "benchmarks/support/meshavatar.h"
#include "benchmarks/support/modulehost.h"
#include "benchmarks/support/plainbones.h"
#include "benchmarks/support/threadclock.h"

namespace {

using namespace KivBenchmark;

const std::string& hierarchy()
{
    static const std::string s_text = hierarchyText(Props::None);
    return s_text;
}

template <typename Work>
double secondsOf(Work&& work)
{
    const double start = threadSeconds();
    work();
    return threadSeconds() - start;
}

/// The first actor of a scene, or one more.
void load(benchmark::State& state, const std::string& text, bool first)
{
    const ModuleHost host;
    if (!first)
        host.load(text, 1);
    for (auto _ : state) {
        state.SetIterationTime(secondsOf([&] { host.load(text, 7); }));
        if (host.scene().getNumChildren() != (first ? 1 : 2))
            state.SkipWithError("the actor is not in the scene");
        host.remove(7);
    }
}

osg::ref_ptr<osgText::Font> labelFont()
{
    KivCharacterization::FontTable fonts;
    if (!KivCharacterization::loadLabelFont(KIV_RUNTIME_ROOT "/Data/Font/arial.ttf", fonts))
        throw std::runtime_error("the label font cannot be read");
    return fonts.begin()->second;
}

/// Seconds for what the contract asks for at least: an actor that is read, made of bones, dressed and named,
/// and the tables of its joints and segments. Where a piece goes is found unmeasured.
double makeAtLeast(const KivCharacterization::CommonTypeDef::SIveInfo& avatar, osgText::Font& font,
                   std::size_t pieces)
{
    osg::ref_ptr<osg::Group> skeleton;
    KivCharacterization::SNameLabel label;
    SkeletonTables tables;
    const double making = secondsOf([&] {
        skeleton = plainBones(readMinimal(hierarchy()));
        tables = SkeletonTables(*skeleton);
        label = KivCharacterization::makeNameLabel(font, "Actor 7");
    });
    const PiecePlaces places = findPlaces(tables.joints, avatar);
    if (places.size() != pieces || tables.segments.size() < tables.joints.size())
        throw std::runtime_error("the floor has another number of pieces, or lacks segments");
    return making + secondsOf([&] { hangCopies(places); });
}

/// One more actor, what it costs at least and plain copies of its pieces in turns, so that what the machine
/// does meanwhile falls on all alike. The time is the command's, the others are counters in microseconds.
void loadInTurns(benchmark::State& state)
{
    const ModuleHost host;
    host.load(hierarchy(), 1);
    const auto avatar = shippedAvatar();
    const auto font = labelFont();
    const std::size_t pieces = copyPieces(avatar).size();
    double floor = 0.0;
    double copies = 0.0;
    for (auto _ : state) {
        state.SetIterationTime(secondsOf([&] { host.load(hierarchy(), 7); }));
        if (host.scene().getNumChildren() != 2)
            state.SkipWithError("the actor is not in the scene");
        host.remove(7);
        floor += makeAtLeast(avatar, *font, pieces);
        std::vector<osg::ref_ptr<osg::Node>> copied;
        copies += secondsOf([&] { copied = copyPieces(avatar); });
        benchmark::DoNotOptimize(copied.data());
    }
    state.counters["floor"] = benchmark::Counter(1e6 * floor, benchmark::Counter::kAvgIterations);
    state.counters["copies"] = benchmark::Counter(1e6 * copies, benchmark::Counter::kAvgIterations);
}

/// Pieces of few triangles: what grows with the number of actors must not hide behind copying.
KivCharacterization::CommonTypeDef::SIveInfo lightAvatar()
{
    return meshAvatar(8);
}

void replace(benchmark::State& state)
{
    const ModuleHost host(lightAvatar());
    const int actors = static_cast<int>(state.range(0));
    host.loadMany(hierarchy(), actors);
    int actor = 0;
    for (auto _ : state) {
        state.SetIterationTime(secondsOf([&] { host.load(hierarchy(), actor); }));
        actor = (actor + 1) % actors;
    }
    if (host.scene().getNumChildren() != static_cast<unsigned>(actors))
        state.SkipWithError("replacing has changed the number of actors");
}

void remove(benchmark::State& state)
{
    const ModuleHost host(lightAvatar());
    const int actors = static_cast<int>(state.range(0));
    host.loadMany(hierarchy(), actors);
    int actor = 0;
    for (auto _ : state) {
        state.SetIterationTime(secondsOf([&] { host.remove(actor); }));
        host.load(hierarchy(), actor);
        actor = (actor + 1) % actors;
    }
    if (host.scene().getNumChildren() != static_cast<unsigned>(actors))
        state.SkipWithError("an actor is missing");
}

void rename(benchmark::State& state)
{
    const ModuleHost host(lightAvatar());
    const int actors = static_cast<int>(state.range(0));
    host.loadMany(hierarchy(), actors);
    int actor = 0;
    for (auto _ : state) {
        state.SetIterationTime(secondsOf([&] { host.rename(actor, "Actor 0"); }));
        actor = (actor + 1) % actors;
    }
}

/// Every actor is touched.
void colour(benchmark::State& state)
{
    const ModuleHost host(lightAvatar());
    const int actors = static_cast<int>(state.range(0));
    host.loadMany(hierarchy(), actors);
    for (auto _ : state)
        state.SetIterationTime(secondsOf([&] { host.paintContacts("LeftHand"); }) / actors);
}

void atWork(benchmark::internal::Benchmark* registered)
{
    registered->UseManualTime()->Unit(benchmark::kMicrosecond);
}

void sizes(benchmark::internal::Benchmark* registered)
{
    registered->Arg(1)->Arg(10)->Arg(100)->Arg(1000)->Apply(atWork);
}

BENCHMARK_CAPTURE(load, first, hierarchy(), true)->Name("commands/load/first")->Apply(atWork);
BENCHMARK(loadInTurns)->Name("commands/load")->Apply(atWork);
BENCHMARK_CAPTURE(load, props, hierarchyText(Props::Left), false)->Name("commands/load/props")->Apply(atWork);
BENCHMARK(replace)->Name("commands/replace")->Apply(sizes);
BENCHMARK(remove)->Name("commands/remove")->Apply(sizes);
BENCHMARK(rename)->Name("commands/rename")->Apply(sizes);
// A time of each actor is short, and so would ask for hundreds of thousands of rounds over all of them.
BENCHMARK(colour)->Name("commands/colour")->Apply(sizes)->Iterations(200);

}  // namespace
