// Posing: one update traversal of actors that play, without dress. Whole rows, as where pictures follow the
// motion's own rate, and blended ones, as where every picture falls between two rows. A bone is what gets a
// matrix of its own: of a skeleton its end sites are, too, of the transform tree only the joints that move.
#include <benchmark/benchmark.h>

#include <osg/MatrixTransform>
#include <osg/NodeVisitor>
#include <osgAnimation/Bone>

#include <string>

#include "benchmarks/support/animatedbones.h"
#include "benchmarks/support/figuretext.h"
#include "benchmarks/support/jointplace.h"
#include "benchmarks/support/stage.h"
#include "benchmarks/support/transformtree.h"

namespace {

using namespace KivBenchmark;

constexpr std::size_t kRows = 64;
constexpr double kFrameTime = 1.0 / 30.0;
constexpr double kRightPlace = 1e-3;  ///< centimetres
const char* const kLastJoint = "RightHandPinky3";

const std::string& motion()
{
    static const std::string s_text = motionText(kRows, kFrameTime);
    return s_text;
}

/// The bones of skeletons in a scene, ours or osgAnimation's.
class BoneCount : public osg::NodeVisitor
{
public:
    BoneCount() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) {}
    void apply(osg::MatrixTransform& node) override
    {
        bones += dynamic_cast<osgAnimation::Bone*>(&node) != nullptr;
        traverse(node);
    }
    std::size_t bones = 0;
};

std::size_t bonesOf(Stage& stage)
{
    BoneCount count;
    stage.scene().accept(count);
    return count.bones;
}

// Each adds so many actors and returns how many bones they have.
std::size_t addOurs(Stage& stage, std::size_t actors)
{
    addSkeletons(stage, motion(), actors);
    return bonesOf(stage);
}

std::size_t addTrees(Stage& stage, std::size_t actors)
{
    const MinimalMotion plain = readMinimal(motion());
    std::size_t bones = 0;
    for (std::size_t i = 0; i < actors; ++i) {
        const osg::ref_ptr<TransformTree> tree = new TransformTree(plain);
        stage.scene().addChild(tree->node());
        bones += tree->movingJoints();
    }
    return bones;
}

std::size_t addAnimatedBones(Stage& stage, std::size_t actors)
{
    const MinimalMotion plain = readMinimal(motion());
    for (std::size_t i = 0; i < actors; ++i)
        stage.scene().addChild(animatedBones(plain));
    return bonesOf(stage);
}

/// Where a joint of an actor stands.
osg::Vec3d place(Stage& stage, unsigned actor)
{
    return placeOfJoint(*stage.scene().getChild(actor), kLastJoint);
}

/// Compares with the plain transform tree.
void checkPlaces(benchmark::State& state, Stage& stage, double row)
{
    Stage plain(kFrameTime);
    addTrees(plain, 1);
    plain.showRow(row);
    stage.showRow(row);
    for (const unsigned actor : {0u, stage.scene().getNumChildren() - 1}) {
        const double distance = (place(stage, actor) - place(plain, 0)).length();
        if (!(distance < kRightPlace))
            state.SkipWithError(("a joint is off by " + std::to_string(distance)).c_str());
    }
}

using AddActors = std::size_t (*)(Stage&, std::size_t);

void pose(benchmark::State& state, AddActors addActors, double firstRow, double step)
{
    Stage stage(kFrameTime);
    const std::size_t bones = addActors(stage, static_cast<std::size_t>(state.range(0)));
    stage.showRow(0.0);
    double row = firstRow;
    checkPlaces(state, stage, row);
    for (auto _ : state) {
        row += step;
        stage.showRow(row);
    }
    state.counters["per bone"] =
        benchmark::Counter(static_cast<double>(bones),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void whole(benchmark::State& state, AddActors addActors)
{
    pose(state, addActors, 10.0, 1.0);
}

void blended(benchmark::State& state, AddActors addActors)
{
    pose(state, addActors, 10.25, 0.5);
}

void sizes(benchmark::internal::Benchmark* registered)
{
    registered->Arg(1)->Arg(10)->Arg(100)->Arg(500)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(whole, ours, addOurs)->Name("posing/whole/ours")->Apply(sizes);
BENCHMARK_CAPTURE(whole, tree, addTrees)->Name("posing/whole/tree")->Apply(sizes);
BENCHMARK_CAPTURE(whole, osgAnimation, addAnimatedBones)->Name("posing/whole/osgAnimation")->Apply(sizes);
BENCHMARK_CAPTURE(blended, ours, addOurs)->Name("posing/blended/ours")->Apply(sizes);
BENCHMARK_CAPTURE(blended, tree, addTrees)->Name("posing/blended/tree")->Apply(sizes);

}  // namespace
