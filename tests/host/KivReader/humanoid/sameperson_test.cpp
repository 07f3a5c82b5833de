// The same person, told of by another file: whatever says it otherwise, the same figure has to come out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "tests/host/KivReader/humanoid/figurecomparison.h"
#include "tests/support/builtpaths.h"
#include "tests/support/motionlibrary.h"
#include "tests/support/motionrewriting/movingfigure.h"
#include "tests/support/motionrewriting/rewritings.h"

namespace {

using namespace KivReaderTest;
using namespace KivTestSupport;
using KivReader::MotionDocument;

constexpr std::size_t kRows = 60;
constexpr std::size_t kRowsToThrowSome = 20;  ///< three of fewer are no exception

/// Two are toys, one is another one three times over.
const std::set<std::string> kLeftOut = {"tiny_two_joint.bvh", "fairmotion_sinusoidal.bvh",
                                        "derived_large_cmu_daz_3x.bvh"};

using Rewritings = std::vector<Rewriting>;

struct Kind
{
    const char* name;
    std::function<Rewritings(const ReadPerson&)> rewrite;
    double atLeast;  ///< of the files, that must come out as before
    Names names = Names::All;
};

Rewritings inOtherBases(const ReadPerson& person)
{
    Rewritings rewritings;
    const std::size_t stride = person.document.frames % 5 + 3;
    for (std::size_t basis = 1; basis < kBases; basis += stride)
        rewritings.push_back(inBasis(person.document, basis));
    return rewritings;
}

Rewritings inOtherUnits(const ReadPerson& person)
{
    Rewritings rewritings;
    for (const double centimetres : {1.0, 100.0, 0.1, 2.54})
        rewritings.push_back(
            inUnits(person.document, person.profiled.record.centimetresPerUnit / centimetres));
    return rewritings;
}

Rewritings withRowsThrownAway(const ReadPerson& person)
{
    if (person.document.frames < kRowsToThrowSome)
        return {};
    return {withRowsThrown(person.document, 1e5 / person.profiled.record.centimetresPerUnit)};
}

Rewritings mirroredWithoutNames(const ReadPerson& person)
{
    Rewriting rewriting = mirrored(person.document);
    rewriting.document = withNumberedNames(rewriting.document).document;
    return {rewriting};
}

const std::vector<Kind> kKinds = {
    {"namesAreNumbers", [](const auto& person) { return Rewritings{withNumberedNames(person.document)}; },
     0.9, Names::Body},
    {"namesAreNumbersInAMirror", mirroredWithoutNames, 0.9, Names::Body},
    {"namesHavePrefixAndSuffix",
     [](const auto& person) { return Rewritings{withNamesBetween(person.document, "Avatar03_", "_jnt7")}; },
     0.9},
    {"childrenAreReversed",
     [](const auto& person) { return Rewritings{withChildrenReversed(person.document)}; }, 1.0},
    {"basisIsAnother", inOtherBases, 0.95},
    {"zeroPoseIsTheFirstFrame",
     [](const auto& person) {
         return Rewritings{withFramesTurned(person.document, turnsToFrame(person.document, 0))};
     },
     1.0},
    {"zeroPoseLiesAlongAnAxis",
     [](const auto& person) {
         return Rewritings{withFramesTurned(person.document, turnsAlongBones(person.document, {0, 1, 0}))};
     },
     0.9},
    {"zeroPoseIsAny",
     [](const auto& person) {
         return Rewritings{withFramesTurned(person.document, anyTurns(person.document, 11))};
     },
     0.9},
    {"unitIsAnother", inOtherUnits, 1.0},
    {"rowsAreThrownAway", withRowsThrownAway, 0.95},
    {"jointsPassThrough",
     [](const auto& person) { return Rewritings{withPassThroughJoints(person.document)}; }, 0.7},
    {"worldIsMirrored", [](const auto& person) { return Rewritings{mirrored(person.document)}; }, 1.0},
};

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".bvh" && kLeftOut.count(entry.path().filename().string()) == 0)
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// The samples that are shipped, and the motion library where it is.
std::vector<std::filesystem::path> humanoidFiles()
{
    std::vector<std::filesystem::path> files =
        filesIn(std::filesystem::path(KivTestSupport::kRuntimeRoot) / "Data" / "BVH");
    if (motionLibrary().empty()) {
        std::printf("the motion library is not here: the samples alone are looked at\n");
        return files;
    }
    const auto more = filesIn(motionLibrary() / "real");
    files.insert(files.end(), more.begin(), more.end());
    return files;
}

/// What is another person in the rewritten file; empty where it is the same one.
std::string difference(const ReadPerson& before, const Rewriting& rewriting, const Kind& kind)
{
    const ReadPerson after(rewriting.document);
    if (!after.profiled.record.isHumanoid)
        return "no humanoid: " + after.profiled.record.whyNot;
    const std::string joint = otherJoint(before, after, rewriting, kind.names);
    if (!joint.empty() || kind.names == Names::Body)
        return joint;
    return otherPlace(before, after, rewriting);
}

bool comesOutTheSame(const std::filesystem::path& file, const Kind& kind)
{
    KivReader::MotionReading reading = KivReader::readMotionDocument(readWholeFile(file));
    EXPECT_TRUE(reading.document) << file << ": " << reading.error.text();
    if (!reading.document)
        return false;
    const MotionDocument document = withRowsAtMost(*reading.document, kRows);
    const ReadPerson before(document);
    EXPECT_TRUE(before.profiled.record.isHumanoid) << file << ": " << before.profiled.record.whyNot;
    std::string differs;
    for (const Rewriting& rewriting : kind.rewrite(before)) {
        if (differs.empty())
            differs = difference(before, rewriting, kind);
    }
    if (!differs.empty())
        std::printf("  %s: %s\n", file.filename().c_str(), differs.c_str());
    return differs.empty();
}

class SamePerson : public testing::TestWithParam<Kind>
{
};

TEST_P(SamePerson, comesOutWhere)
{
    const Kind& kind = GetParam();
    const std::vector<std::filesystem::path> files = humanoidFiles();
    ASSERT_GE(files.size(), 4U);
    const auto right = std::count_if(files.begin(), files.end(),
                                     [&](const auto& file) { return comesOutTheSame(file, kind); });
    std::printf("%-28s %3d of %3d files\n", kind.name, static_cast<int>(right),
                static_cast<int>(files.size()));
    EXPECT_GE(static_cast<double>(right), kind.atLeast * static_cast<double>(files.size()));
}

INSTANTIATE_TEST_SUITE_P(TheFile, SamePerson, testing::ValuesIn(kKinds),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
