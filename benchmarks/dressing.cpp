// Dressing: an avatar's pieces hung on a skeleton, beside plain copies of the same pieces. What is needed
// before and thrown away after is not measured.
#include <benchmark/benchmark.h>

#include <functional>

#include "KivCharacterization/Characterization/characterbvh.h"
#include "KivCharacterization/naming.h"
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
        pieces += KivCharacterization::hasPiecePrefix(node.getName()) ? 1 : 0;
        traverse(node);
    }
    std::size_t pieces = 0;
};

std::size_t piecesBelow(osg::Node& skeleton)
{
    PieceCounter counter;
    skeleton.accept(counter);
    return counter.pieces;
}

/// Seconds that the module takes for a dress.
double dress(SIveInfo& avatar, const osg::ref_ptr<osg::Node>& skeleton)
{
    KivCharacterization::SFittingRecord record;
    const double start = threadSeconds();
    KivCharacterization::AttachEntityToBvhSkeleton("7", skeleton, record, avatar);
    return threadSeconds() - start;
}

/// Seconds that the contract's tables and nodes take at least.
double dressAtLeast(const SIveInfo& avatar, const osg::ref_ptr<osg::Node>& skeleton)
{
    const PiecePlaces places = findPlaces(SkeletonTables(*skeleton).joints, avatar);
    const double start = threadSeconds();
    const SkeletonTables tables(*skeleton);
    hangCopies(places);
    return threadSeconds() - start;
}

double copyAlone(const SIveInfo& avatar)
{
    const osg::ref_ptr<osg::Node> skeleton = bareSkeleton();
    const double start = threadSeconds();
    const auto pieces = copyPieces(avatar);
    const double seconds = threadSeconds() - start;
    benchmark::DoNotOptimize(pieces.data());
    return seconds;
}

/// All three in turns, so that what the machine does meanwhile falls on all alike. The time is the module's,
/// the others are counters in microseconds.
void inTurns(benchmark::State& state, const std::function<SIveInfo()>& makeAvatar)
{
    SIveInfo avatar = makeAvatar();
    const std::size_t pieces = copyPieces(avatar).size();
    double floor = 0.0;
    double copies = 0.0;
    for (auto _ : state) {
        osg::ref_ptr<osg::Node> skeleton = bareSkeleton();
        state.SetIterationTime(dress(avatar, skeleton));
        if (floor == 0.0 && piecesBelow(*skeleton) != pieces)
            state.SkipWithError("the dress has another number of pieces");
        skeleton = bareSkeleton();
        floor += dressAtLeast(avatar, skeleton);
        if (copies == 0.0 && piecesBelow(*skeleton) != pieces)
            state.SkipWithError("the floor has another number of pieces");
        skeleton = nullptr;
        copies += copyAlone(avatar);
    }
    state.counters["floor"] = benchmark::Counter(1e6 * floor, benchmark::Counter::kAvgIterations);
    state.counters["copies"] = benchmark::Counter(1e6 * copies, benchmark::Counter::kAvgIterations);
}

/// Light pieces: what a piece costs beside the copying of its triangles must not grow with their number.
void light(benchmark::State& state)
{
    SIveInfo avatar = meshAvatar(8, static_cast<std::size_t>(state.range(0)));
    osg::ref_ptr<osg::Node> skeleton;
    for (auto _ : state) {
        skeleton = bareSkeleton();
        state.SetIterationTime(dress(avatar, skeleton));
    }
    if (piecesBelow(*skeleton) != copyPieces(avatar).size())
        state.SkipWithError("the dress has another number of pieces");
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

BENCHMARK(light)->Name("dressing/light")->Arg(15)->Arg(60)->Arg(240)->Apply(atWork);
BENCHMARK_CAPTURE(inTurns, 500, of500)->Name("dressing/500")->Apply(atWork);
BENCHMARK_CAPTURE(inTurns, 5000, of5000)->Name("dressing/5000")->Apply(atWork);
BENCHMARK_CAPTURE(inTurns, shipped, shippedAvatar)->Name("dressing/shipped")->Apply(atWork);

}  // namespace
