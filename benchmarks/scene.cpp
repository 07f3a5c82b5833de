// The whole scene: update traversal with playback and overlays, bounds and cull of dressed actors that play,
// beside plain transform trees with a copy of each piece right under its joint.
#include <benchmark/benchmark.h>

#include <osg/NodeVisitor>

#include "KivMemoryShare/scenecfgshare.h"
#include "benchmarks/support/figuretext.h"
#include "benchmarks/support/meshavatar.h"
#include "benchmarks/support/modulehost.h"
#include "benchmarks/support/sceneculler.h"
#include "benchmarks/support/stage.h"
#include "benchmarks/support/transformtree.h"

namespace {

using namespace KivBenchmark;

constexpr double kFrameTime = 1.0 / 60.0;

const std::string& motion()
{
    static const std::string s_text = motionText(64, kFrameTime);
    return s_text;
}

std::vector<osg::MatrixTransform*> transformsNamedBy(const KivCharacterization::IveJointMap& joints,
                                                     osg::Node& tree)
{
    class Finder : public osg::NodeVisitor
    {
    public:
        explicit Finder(const KivCharacterization::IveJointMap& joints)
            : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_joints(joints)
        {}
        void apply(osg::MatrixTransform& node) override
        {
            if (m_joints.count(node.getName()) != 0)
                found.push_back(&node);
            traverse(node);
        }
        std::vector<osg::MatrixTransform*> found;

    private:
        const KivCharacterization::IveJointMap& m_joints;
    };
    Finder finder(joints);
    tree.accept(finder);
    return finder.found;
}

void addDressedTrees(Stage& stage, std::int64_t actors)
{
    static const KivCharacterization::CommonTypeDef::SIveInfo s_avatar = shippedAvatar();
    const MinimalMotion plain = readMinimal(motion());
    for (std::int64_t i = 0; i < actors; ++i) {
        const osg::ref_ptr<TransformTree> tree = new TransformTree(plain);
        for (osg::MatrixTransform* joint : transformsNamedBy(s_avatar.jointMap, *tree->node()))
            for (const osg::MatrixTransform* piece : s_avatar.jointMap.at(joint->getName()).pieces)
                joint->addChild(static_cast<osg::Node*>(piece->clone(osg::CopyOp::DEEP_COPY_ALL)));
        stage.scene().addChild(tree->node());
    }
}

enum Part
{
    Update,
    Cull
};

void frames(benchmark::State& state, Stage& stage, Part measured)
{
    double row = 0.0;
    stage.showRow(row);
    SceneCuller culler(stage.scene(), stage.scene().getBound());
    culler.cull();
    for (auto _ : state) {
        if (measured == Cull)
            state.PauseTiming();
        stage.showRow(row += 1.0);
        if (measured == Cull)
            state.ResumeTiming();
        else
            state.PauseTiming();
        culler.cull();
        if (measured == Update)
            state.ResumeTiming();
    }
    const auto actors = static_cast<double>(state.range(0));
    state.counters["drawables per actor"] = culler.drawables() / actors;
    state.counters["per actor"] = benchmark::Counter(
        actors, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void ours(benchmark::State& state, Part measured)
{
    const ModuleHost host;
    host.loadMany(motion(), static_cast<int>(state.range(0)));
    Stage stage(kFrameTime);
    stage.scene().addChild(&host.scene());
    frames(state, stage, measured);
}

void trees(benchmark::State& state, Part measured)
{
    Stage stage(kFrameTime);
    addDressedTrees(stage, state.range(0));
    frames(state, stage, measured);
}

void sizes(benchmark::internal::Benchmark* registered)
{
    registered->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(ours, update, Update)->Name("scene/update/ours")->Apply(sizes);
BENCHMARK_CAPTURE(trees, update, Update)->Name("scene/update/tree")->Apply(sizes);
BENCHMARK_CAPTURE(ours, cull, Cull)->Name("scene/cull/ours")->Apply(sizes);
BENCHMARK_CAPTURE(trees, cull, Cull)->Name("scene/cull/tree")->Apply(sizes);

}  // namespace
