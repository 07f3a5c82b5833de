// A frame loop while actors are loaded beside it, and the way to the first frame; nothing is drawn. Prints
// a line for every figure: its value, its name. Times are of the clock, so that waiting counts; processor
// time where it says so.
//   kivframeloop [LONG-MOTION.bvh]
#include <osg/Notify>
#include <osgDB/Options>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <future>
#include <iostream>
#include <iterator>
#include <vector>

#include "KivReader/readerwriterbvh.h"
#include "KivTaskCommand/commandthread.h"
#include "benchmarks/support/figuretext.h"
#include "benchmarks/support/modulehost.h"
#include "benchmarks/support/readskeleton.h"
#include "benchmarks/support/sceneculler.h"
#include "benchmarks/support/stage.h"
#include "benchmarks/support/threadclock.h"

namespace {

using namespace KivBenchmark;
using KivTaskCommand::CommandThread;
using KivTaskCommand::ICmdExcDelegate;
using KivTaskCommand::SceneGate;
using KivTaskCommand::TaskCommand;
using Clock = std::chrono::steady_clock;

constexpr int kActors = 100;
constexpr double kFrameTime = 1.0 / 60.0;
const osg::BoundingSphere kFigure(osg::Vec3(0.0f, 0.0f, 90.0f), 150.0f);

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void print(double value, const std::string& name)
{
    std::printf("%.4g\t%s\n", value, name.c_str());
}

/// Processor time of the stages of all loads, in seconds.
struct LoadTimes
{
    double prepare = 0.0;         ///< beside the frames, of all together
    double longestExecute = 0.0;  ///< inside the gate
};

/// Runs another command's stages and notes how much processor time they take.
class TimedLoad : public ICmdExcDelegate
{
public:
    TimedLoad(const std::string& motion, int actor, LoadTimes& times)
        : ICmdExcDelegate(1, 2, 3, 4), m_times(times)
    {
        ModuleHost::manager().createLoadBVHCommand(motion, actor, "Actor " + std::to_string(actor), &m_load);
    }

    bool prepare() override
    {
        const double start = threadSeconds();
        const bool done = m_load.cmdExcImp()->prepare();
        m_times.prepare += threadSeconds() - start;
        return done;
    }
    bool execute() override
    {
        const double start = threadSeconds();
        const bool done = m_load.cmdExcImp()->execute();
        m_times.longestExecute = std::max(m_times.longestExecute, threadSeconds() - start);
        return done;
    }
    bool finish() override { return m_load.cmdExcImp()->finish(); }

private:
    TaskCommand m_load;
    LoadTimes& m_times;
};

/// Keeps a processor busy for as long as a load does and then passes the gate with nothing to do there.
class EmptyCommand : public ICmdExcDelegate
{
public:
    explicit EmptyCommand(double seconds) : ICmdExcDelegate(1, 2, 3, 4), m_seconds(seconds) {}

    bool prepare() override
    {
        for (const double start = threadSeconds(); threadSeconds() - start < m_seconds;) {
        }
        return true;
    }
    bool execute() override { return true; }
    bool finish() override { return true; }

private:
    double m_seconds;
};

/// What the loop waits for around its frames, in milliseconds: to close the gate and to open it.
class FrameLoop
{
public:
    explicit FrameLoop(SceneGate& gate)
        : m_gate(gate), m_stage(kFrameTime), m_culler(m_stage.scene(), kFigure)
    {
        m_stage.scene().addChild(&ModuleHost::scene());
    }

    void frame()
    {
        const Clock::time_point start = Clock::now();
        m_gate.close();
        const double closing = millisecondsSince(start);
        m_stage.showRow(static_cast<double>(stalls.size()));
        m_culler.cull();
        const Clock::time_point opening = Clock::now();
        m_gate.open();
        stalls.push_back(closing + millisecondsSince(opening));
    }

    std::vector<double> stalls;

private:
    SceneGate& m_gate;
    Stage m_stage;
    SceneCuller m_culler;
};

void printStalls(std::vector<double> stalls, const std::string& when)
{
    std::sort(stalls.begin(), stalls.end());
    print(static_cast<double>(stalls.size()), "frames " + when);
    print(stalls.back(), "longest stall " + when);
    auto counted = stalls.begin();
    for (const double limit : {0.01, 0.1, 0.5, 1.0, 2.0, 5.0}) {
        const auto end = std::upper_bound(stalls.begin(), stalls.end(), limit);
        std::printf("%td\tstalls up to %g ms %s\n", end - counted, limit, when.c_str());
        counted = end;
    }
    std::printf("%td\tstalls of more %s\n", stalls.end() - counted, when.c_str());
}

using Commands = std::vector<std::unique_ptr<ICmdExcDelegate>>;

/// Frames one after the other, as many as it takes for a thread beside them to run all commands.
void playWhile(FrameLoop& loop, SceneGate& gate, Commands commands)
{
    loop.stalls.clear();
    CommandThread thread(gate);
    std::vector<std::future<bool>> answers;
    for (std::unique_ptr<ICmdExcDelegate>& stages : commands) {
        auto command = std::make_unique<TaskCommand>();
        command->setCmdExcImp(stages.release());
        answers.push_back(thread.submit(std::move(command)));
    }
    for (std::future<bool>& answer : answers) {
        while (answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
            loop.frame();
        if (!answer.get())
            throw std::runtime_error("a command has failed");
    }
}

void measureStalls()
{
    const ModuleHost host;
    const std::string motion = motionText(64, kFrameTime);
    SceneGate gate;
    FrameLoop loop(gate);
    LoadTimes times;
    Commands loads;
    for (int actor = 0; actor < kActors; ++actor)
        loads.push_back(std::make_unique<TimedLoad>(motion, actor, times));
    playWhile(loop, gate, std::move(loads));
    printStalls(loop.stalls, "while 100 actors load");
    print(1e3 * times.longestExecute, "longest stage inside the gate, processor time");
    // The same scene and a thread as busy that has nothing to do inside the gate, and then nobody at the
    // gate: what the machine alone does to a frame loop.
    Commands empty;
    for (int command = 0; command < kActors; ++command)
        empty.push_back(std::make_unique<EmptyCommand>(times.prepare / kActors));
    playWhile(loop, gate, std::move(empty));
    printStalls(loop.stalls, "while 100 empty commands pass");
    loop.stalls.clear();
    while (loop.stalls.size() < 200)
        loop.frame();
    printStalls(loop.stalls, "with nothing to load");
}

void measureStart(Clock::time_point start)
{
    const ModuleHost host;
    print(millisecondsSince(start), "start: avatar and font");
    Clock::time_point at = Clock::now();
    host.load(motionText(300, kFrameTime), 1);
    print(millisecondsSince(at), "start: first actor of 300 rows");
    at = Clock::now();
    Stage stage(kFrameTime);
    stage.scene().addChild(&host.scene());
    stage.showRow(0.0);
    SceneCuller(stage.scene(), kFigure).cull();
    print(millisecondsSince(at), "start: first frame, undrawn");
    print(millisecondsSince(start), "start: all");
}

void measureLongMotion(const std::string& file)
{
    Clock::time_point at = Clock::now();
    std::ifstream stream(file, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    if (text.empty())
        throw std::runtime_error(file + " cannot be read");
    const osg::ref_ptr<osgDB::Options> options = new osgDB::Options("profile=auto");
    KivReader::ReaderWriterBVH::setDefaultOptions(options);
    print(1e-6 * static_cast<double>(text.size()), "long motion: megabytes");
    print(millisecondsSince(at), "long motion: file to memory");
    at = Clock::now();
    readSkeleton(text);
    const double reading = millisecondsSince(at);
    print(reading, "long motion: reading");
    const ModuleHost host;
    at = Clock::now();
    host.load(text, 1);
    Stage stage(kFrameTime);
    stage.scene().addChild(&host.scene());
    stage.showRow(0.0);
    SceneCuller(stage.scene(), kFigure).cull();
    print(millisecondsSince(at) - reading, "long motion: shown after reading");
    KivReader::ReaderWriterBVH::setDefaultOptions(nullptr);
}

}  // namespace

int main(int argc, char** argv)
{
    const Clock::time_point start = Clock::now();
    osg::setNotifyLevel(osg::FATAL);
    try {
        measureStart(start);
        measureStalls();
        if (argc > 1)
            measureLongMotion(argv[1]);
    } catch (const std::exception& problem) {
        std::cerr << "kivframeloop: " << problem.what() << "\n";
        return 1;
    }
    return 0;
}
