// Runs the benchmarks: the options are those of Google Benchmark.
#include <benchmark/benchmark.h>

#include <osg/Notify>

#include <malloc.h>

#include <clocale>

int main(int argc, char** argv)
{
    std::setlocale(LC_ALL, "C");
    // Memory that is freed stays with the program: what is measured is the work, not the system's pages.
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    osg::setNotifyLevel(osg::FATAL);  // a peer that talks is measured no slower for it
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
