// Works of a small, fixed size for callgrind to count: each is run twice to warm up, then once counted, and
// dumped under its name. Run by bench.sh --gate.
#include <malloc.h>
#include <valgrind/callgrind.h>
#include <osg/Notify>

#include <functional>
#include <iostream>

#include "KivCharacterization/Characterization/characterbvh.h"
#include "KivReader/readerwriterbvh.h"
#include "benchmarks/support/figuretext.h"
#include "benchmarks/support/leastdress.h"
#include "benchmarks/support/meshavatar.h"
#include "benchmarks/support/minimalreader.h"
#include "benchmarks/support/modulehost.h"
#include "benchmarks/support/plainbones.h"
#include "benchmarks/support/readskeleton.h"
#include "benchmarks/support/sceneculler.h"
#include "benchmarks/support/stage.h"
#include "benchmarks/support/transformtree.h"

namespace {

using namespace KivBenchmark;

constexpr std::size_t kRows = 16;

void count(
    const char* name, const std::function<void()>& work, const std::function<void()>& before = [] {})
{
    for (int run = 0; run < 3; ++run) {
        before();
        if (run == 2) {
            // Or tidying up the heap falls into this work or the next, as its addresses have it.
            malloc_trim(0);
            CALLGRIND_ZERO_STATS;
            CALLGRIND_TOGGLE_COLLECT;
        }
        work();
    }
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(name);
}

void countReading()
{
    const std::string hierarchy = hierarchyText();
    const std::string motion = motionText(kRows);
    ReadSkeleton skeleton;
    const auto release = [&] { skeleton = {}; };
    count(
        "read a hierarchy", [&] { skeleton = readSkeleton(hierarchy); }, release);
    count("minimal reader, hierarchy", [&] { readMinimal(hierarchy); });
    osg::ref_ptr<osg::Group> bones;
    count(
        "minimal reader, plain bones", [&] { bones = plainBones(readMinimal(hierarchy)); },
        [&] { bones = nullptr; });
    count(
        "read 16 rows of motion", [&] { skeleton = readSkeleton(motion); }, release);
    count("minimal reader, 16 rows", [&] { readMinimal(motion); });
}

void countProfile()
{
    const KivReader::MotionReading reading = KivReader::readMotionDocument(motionText(kRows));
    count("profile step", [&] { KivReader::profileMotion(*reading.document, {}); });
}

void countDressing()
{
    KivCharacterization::CommonTypeDef::SIveInfo avatar = meshAvatar(500);
    const std::string hierarchy = hierarchyText(Props::None);
    ReadSkeleton skeleton;
    KivCharacterization::SFittingRecord record;
    count(
        "dress with 60 pieces",
        [&] { KivCharacterization::AttachEntityToBvhSkeleton("7", skeleton.node, record, avatar); },
        [&] {
            skeleton = readSkeleton(hierarchy);
            record = {};
        });
    SkeletonTables tables;
    PiecePlaces places;
    count(
        "least dress of 60 pieces",
        [&] {
            tables = SkeletonTables(*skeleton.node);
            hangCopies(places);
        },
        [&] {
            tables = {};
            skeleton = readSkeleton(hierarchy);
            places = findPlaces(SkeletonTables(*skeleton.node).joints, avatar);
        });
    std::vector<osg::ref_ptr<osg::Node>> copies;
    count(
        "copy 60 pieces", [&] { copies = copyPieces(avatar); }, [&] { copies.clear(); });
}

void countCommands()
{
    // What goes with an actor may or may not make the C library tidy up its lists of small pieces, as their
    // addresses have it: without such lists there is nothing to tidy up.
    mallopt(M_MXFAST, 0);
    const ModuleHost host;
    const std::string hierarchy = hierarchyText(Props::None);
    count(
        "load an actor", [&] { host.load(hierarchy, 1); }, [&] { host.removeAll(); });
    count(
        "load ten actors", [&] { host.loadMany(hierarchy, 10); }, [&] { host.removeAll(); });
    count("replace one of ten actors", [&] { host.load(hierarchy, 5); });
    count(
        "remove one of ten actors", [&] { host.remove(5); }, [&] { host.load(hierarchy, 5); });
}

/// Whole frames of dressed actors: update traversal with playback and overlays, then cull.
void countFrames(int actors, const char* updateName, const char* cullName)
{
    const ModuleHost host;
    host.loadMany(motionText(kRows, 1.0 / 30.0), actors);
    Stage stage(1.0 / 30.0);
    stage.scene().addChild(&host.scene());
    double row = 0.0;
    stage.showRow(row);
    SceneCuller culler(stage.scene(), stage.scene().getBound());
    culler.cull();
    count(
        updateName, [&] { stage.showRow(row += 1.0); }, [&] { culler.cull(); });
    count(
        cullName, [&] { culler.cull(); }, [&] { stage.showRow(row += 1.0); });
}

void countPosing()
{
    const std::string motion = motionText(kRows, 1.0 / 30.0);
    Stage stage(1.0 / 30.0);
    addSkeletons(stage, motion, 1);
    double row = 0.0;
    stage.showRow(row);
    count("pose at a row", [&] { stage.showRow(row += 1.0); });
    row += 0.25;
    count("pose between rows", [&] { stage.showRow(row += 1.0); });

    Stage plain(1.0 / 30.0);
    const osg::ref_ptr<TransformTree> tree = new TransformTree(readMinimal(motion));
    plain.scene().addChild(tree->node());
    row = 0.0;
    count("transform tree at a row", [&] { plain.showRow(row += 1.0); });
    row += 0.25;
    count("transform tree between rows", [&] { plain.showRow(row += 1.0); });
}

}  // namespace

int main()
{
    osg::setNotifyLevel(osg::FATAL);
    try {
        countReading();
        countProfile();
        countDressing();
        countCommands();
        countPosing();
        countFrames(10, "update ten actors", "cull ten actors");
        countFrames(100, "update a hundred actors", "cull a hundred actors");
    } catch (const std::exception& problem) {
        std::cerr << "kivinstructions: " << problem.what() << "\n";
        return 1;
    }
    return 0;
}
