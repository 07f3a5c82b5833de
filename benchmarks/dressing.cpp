// Dressing: an avatar's pieces hung on a skeleton, beside plain copies of the same pieces. What is needed
// before and thrown away after is not measured.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>

#include "KivCharacterization/Characterization/characterbvh.h"
#include "benchmarks/support/figuretext.h"
#include "benchmarks/support/leastdress.h"
#include "benchmarks/support/meshavatar.h"
#include "benchmarks/support/readskeleton.h"
#include "benchmarks/support/threadclock.h"

namespace {

using namespace KivBenchmark;
using KivCharacterization::CommonTypeDef::SIveInfo;

osg::ref_ptr<osg::Node> bareSkeleton()
{
    static const std::string s_text = hierarchyText(Props::None);
    return readSkeleton(s_text).node;
}

/// How many pieces hang below a node: what the pieces' names begin with tells.
class PieceCounter : public osg::NodeVisitor
{
public:
    PieceCounter() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) {}
    void apply(osg::Node& node) override
    {
        pieces += node.getName().compare(0, 6, "Joint:") == 0 ? 1 : 0;
        traverse(node);
    }
    std::size_t pieces = 0;
};

void ours(benchmark::State& state, const std::function<SIveInfo()>& makeAvatar)
{
    SIveInfo avatar = makeAvatar();
    PieceCounter counter;
    for (auto _ : state) {
        const osg::ref_ptr<osg::Node> skeleton = bareSkeleton();
        KivCharacterization::SFittingRecord record;
        const double start = threadSeconds();
        KivCharacterization::AttachEntityToBvhSkeleton("7", skeleton, record, avatar);
        state.SetIterationTime(threadSeconds() - start);
        if (counter.pieces == 0)
            skeleton->accept(counter);
    }
    if (counter.pieces != copyPieces(avatar).size())
        state.SkipWithError("the dress has another number of pieces");
    state.counters["pieces"] = static_cast<double>(counter.pieces);
}

void copies(benchmark::State& state, const std::function<SIveInfo()>& makeAvatar)
{
    const SIveInfo avatar = makeAvatar();
    for (auto _ : state) {
        const osg::ref_ptr<osg::Node> skeleton = bareSkeleton();
        const double start = threadSeconds();
        const auto pieces = copyPieces(avatar);
        state.SetIterationTime(threadSeconds() - start);
        benchmark::DoNotOptimize(pieces.data());
    }
}

void atLeast(benchmark::State& state, const std::function<SIveInfo()>& makeAvatar)
{
    const SIveInfo avatar = makeAvatar();
    PieceCounter counter;
    for (auto _ : state) {
        const osg::ref_ptr<osg::Node> skeleton = bareSkeleton();
        const PiecePlaces places = findPlaces(SkeletonTables(*skeleton).joints, avatar);
        const double start = threadSeconds();
        const SkeletonTables tables(*skeleton);
        hangCopies(places);
        state.SetIterationTime(threadSeconds() - start);
        if (counter.pieces == 0)
            skeleton->accept(counter);
    }
    if (counter.pieces != copyPieces(avatar).size())
        state.SkipWithError("the floor has another number of pieces");
}

void atWork(benchmark::internal::Benchmark* registered)
{
    registered->UseManualTime()->Unit(benchmark::kMicrosecond);
}

SIveInfo of500()
{
    return meshAvatar(500);
}
SIveInfo of5000()
{
    return meshAvatar(5000);
}

/// Light pieces: what a piece costs beside the copying of its triangles must not grow with their number.
SIveInfo piecesOf8(std::int64_t pieces)
{
    return meshAvatar(8, static_cast<std::size_t>(pieces));
}

void light(benchmark::State& state)
{
    ours(state, [&state] { return piecesOf8(state.range(0)); });
}

BENCHMARK(light)->Name("dressing/light")->Arg(15)->Arg(60)->Arg(240)->Apply(atWork);
BENCHMARK_CAPTURE(ours, 500, of500)->Name("dressing/500/ours")->Apply(atWork);
BENCHMARK_CAPTURE(atLeast, 500, of500)->Name("dressing/500/floor")->Apply(atWork);
BENCHMARK_CAPTURE(copies, 500, of500)->Name("dressing/500/copies")->Apply(atWork);
BENCHMARK_CAPTURE(ours, 5000, of5000)->Name("dressing/5000/ours")->Apply(atWork);
BENCHMARK_CAPTURE(atLeast, 5000, of5000)->Name("dressing/5000/floor")->Apply(atWork);
BENCHMARK_CAPTURE(copies, 5000, of5000)->Name("dressing/5000/copies")->Apply(atWork);
BENCHMARK_CAPTURE(ours, shipped, shippedAvatar)->Name("dressing/shipped/ours")->Apply(atWork);
BENCHMARK_CAPTURE(atLeast, shipped, shippedAvatar)->Name("dressing/shipped/floor")->Apply(atWork);
BENCHMARK_CAPTURE(copies, shipped, shippedAvatar)->Name("dressing/shipped/copies")->Apply(atWork);

}  // namespace
