// The profile step: what makes a humanoid motion ready for dressing, beside reading the same text.
#include <benchmark/benchmark.h>

#include "KivReader/humanoidprofile.h"
#include "benchmarks/support/figuretext.h"

namespace {

using namespace KivBenchmark;

const std::string& text()
{
    static const std::string s_text = motionText(625);
    return s_text;
}

void step(benchmark::State& state)
{
    const KivReader::MotionReading reading = KivReader::readMotionDocument(text());
    KivReader::ProfileRecord record;
    for (auto _ : state)
        record = KivReader::profileMotion(*reading.document, {});
    if (!record.isHumanoid || record.matched.size() + 2 < kJoints)
        state.SkipWithError(
            ("not recognised: " + record.whyNot + ", " + std::to_string(record.matched.size()) + " joints")
                .c_str());
}

void reading(benchmark::State& state)
{
    for (auto _ : state) {
        const KivReader::MotionReading result = KivReader::readMotionDocument(text());
        benchmark::DoNotOptimize(result.document->values.data());
    }
}

BENCHMARK(step)->Name("profile/step")->Unit(benchmark::kMicrosecond);
BENCHMARK(reading)->Name("profile/reading")->Unit(benchmark::kMicrosecond);

}  // namespace
