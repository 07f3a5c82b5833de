// Reading: the text of a motion to a skeleton and its table. Every reader's result is released within the
// measured time.
#include <benchmark/benchmark.h>

#include <assimp/scene.h>
#include <assimp/Importer.hpp>
#include <osg/Group>
#include <osg/MatrixTransform>
#include <osgDB/Registry>

#include <map>
#include <numeric>
#include <sstream>
#include <string>

#include "benchmarks/support/figuretext.h"
#include "benchmarks/support/minimalreader.h"
#include "benchmarks/support/plainbones.h"
#include "benchmarks/support/readskeleton.h"

namespace {

using namespace KivBenchmark;

/// A text of that many rows; 0 is the hierarchy alone.
const std::string& textOf(std::int64_t rows)
{
    static std::map<std::int64_t, std::string> s_texts;
    std::string& text = s_texts[rows];
    if (text.empty())
        text = rows == 0 ? hierarchyText() : motionText(static_cast<std::size_t>(rows));
    return text;
}

double sumOf(const std::vector<float>& values)
{
    return std::accumulate(values.begin(), values.end(), 0.0);
}

double wantedSum(std::int64_t rows)
{
    return rows == 0 ? 0.0 : sumOf(readMinimal(textOf(rows)).values);
}

void report(benchmark::State& state, bool right)
{
    if (!right)
        state.SkipWithError("the reader's result is wrong");
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * textOf(state.range(0)).size()));
}

void minimal(benchmark::State& state)
{
    const std::string& text = textOf(state.range(0));
    std::size_t values = 0;
    for (auto _ : state) {
        const MinimalMotion motion = readMinimal(text);
        benchmark::DoNotOptimize(motion.values.data());
        values = motion.values.size();
    }
    report(state, values == static_cast<std::size_t>(state.range(0)) * kColumns);
}

void minimalNodes(benchmark::State& state)
{
    const std::string& text = textOf(state.range(0));
    unsigned children = 0;
    for (auto _ : state) {
        const osg::ref_ptr<osg::Group> top = plainBones(readMinimal(text));
        benchmark::DoNotOptimize(top.get());
        children = top->getNumChildren();
    }
    report(state, children == 1);
}

void ours(benchmark::State& state)
{
    const std::string& text = textOf(state.range(0));
    double sum = -1.0;
    for (auto _ : state) {
        const ReadSkeleton actor = readSkeleton(text);
        benchmark::DoNotOptimize(actor.animation->motionTable().values.data());
        if (sum == -1.0) {
            state.PauseTiming();
            sum = sumOf(actor.animation->motionTable().values);
            state.ResumeTiming();
        }
    }
    report(state, sum == wantedSum(state.range(0)));
}

void sceneGraphPlugin(benchmark::State& state)
{
    osgDB::ReaderWriter* reader = osgDB::Registry::instance()->getReaderWriterForExtension("bvh");
    if (!reader) {
        state.SkipWithError("OpenSceneGraph's BVH plugin is not there");
        return;
    }
    std::istringstream text(textOf(state.range(0)));
    bool read = true;
    for (auto _ : state) {
        text.clear();
        text.seekg(0);
        osgDB::ReaderWriter::ReadResult result = reader->readNode(text);
        const osg::ref_ptr<osg::Node> node = result.getNode();
        benchmark::DoNotOptimize(node.get());
        read = read && node.valid();
    }
    report(state, read);
}

void assimp(benchmark::State& state)
{
    const std::string& text = textOf(state.range(0));
    bool read = true;
    for (auto _ : state) {
        Assimp::Importer importer;
        const aiScene* scene = importer.ReadFileFromMemory(text.data(), text.size(), 0, "bvh");
        benchmark::DoNotOptimize(scene);
        read = read && scene && scene->mNumAnimations == 1 && scene->mAnimations[0]->mNumChannels >= kJoints;
    }
    report(state, read);
}

BENCHMARK(minimal)->Name("reading/hierarchy/minimal")->Arg(0)->Unit(benchmark::kMicrosecond);
BENCHMARK(minimalNodes)->Name("reading/hierarchy/nodes")->Arg(0)->Unit(benchmark::kMicrosecond);
BENCHMARK(ours)->Name("reading/hierarchy/ours")->Arg(0)->Unit(benchmark::kMicrosecond);
BENCHMARK(sceneGraphPlugin)->Name("reading/hierarchy/osg")->Arg(0)->Unit(benchmark::kMicrosecond);

constexpr std::int64_t kSmall = 625;
constexpr std::int64_t kMiddle = 2500;
constexpr std::int64_t kLarge = 10000;

BENCHMARK(minimal)->Name("reading/motion/minimal")->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge);
BENCHMARK(ours)->Name("reading/motion/ours")->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge);
BENCHMARK(sceneGraphPlugin)->Name("reading/motion/osg")->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge);
BENCHMARK(assimp)->Name("reading/motion/assimp")->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge);

}  // namespace
