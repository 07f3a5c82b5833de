#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "KivReader/motiondocument.h"
#include "tests/host/KivReader/csvtable.h"
#include "tests/support/motionlibrary.h"

namespace {

using namespace KivReaderTest;
using KivReader::Diagnostic;
using KivReader::MotionReading;

MotionReading readFile(const std::filesystem::path& file)
{
    return KivReader::readMotionDocument(KivTestSupport::readWholeFile(file));
}

bool warnsInLine(const MotionReading& reading, std::size_t line)
{
    for (const Diagnostic& warning : reading.document->warnings) {
        if (line == 0 || warning.line == line)
            return true;
    }
    return false;
}

void expectRefusal(const MotionReading& reading, std::size_t line)
{
    ASSERT_FALSE(reading.document);
    EXPECT_FALSE(reading.error.message.empty());
    if (line > 0) {
        EXPECT_EQ(reading.error.line, line);
    }
}

void expectAsListed(const MotionReading& reading, const CsvRow& row)
{
    const std::string& expected = row.at("expected");
    const std::size_t line = row.at("line").empty() ? 0 : std::stoul(row.at("line"));
    if (expected == "reject")
        return expectRefusal(reading, line);
    if (expected == "either")
        return;
    ASSERT_TRUE(reading.document) << reading.error.text();
    if (expected == "tolerate+warn") {
        EXPECT_TRUE(warnsInLine(reading, line));
    } else {
        EXPECT_TRUE(reading.document->warnings.empty());
    }
}

/// What a listed message says behind "line n: ".
std::string reasonIn(const std::string& message)
{
    const std::size_t colon = message.rfind("line ", 0) == 0 ? message.find(": ") : std::string::npos;
    return colon == std::string::npos ? message : message.substr(colon + 2);
}

void expectListedReason(const MotionReading& reading, const std::string& message)
{
    if (message.empty())
        return;
    std::string said = reading.error.message;
    for (std::size_t i = 0; reading.document && i < reading.document->warnings.size(); ++i)
        said += reading.document->warnings[i].message + "\n";
    EXPECT_THAT(said, testing::HasSubstr(reasonIn(message)));
}

TEST(DefectiveFile, isRefusedOrToleratedAsListedWithTheListedReason)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    const std::filesystem::path folder = KivTestSupport::motionLibrary() / "bad";
    const std::vector<CsvRow> rows = readCsv(folder / "manifest.csv");
    EXPECT_GE(rows.size(), 30U);
    for (const CsvRow& row : rows) {
        SCOPED_TRACE(row.at("file"));
        const MotionReading reading = readFile(folder / row.at("file"));
        expectAsListed(reading, row);
        expectListedReason(reading, row.at("oracle_message"));
    }
}

void expectCounts(const MotionReading& reading, const CsvRow& row)
{
    std::size_t endSites = 0;
    for (const KivReader::MotionDocument::Joint& joint : reading.document->joints)
        endSites += joint.endSite ? 1 : 0;
    EXPECT_EQ(reading.document->joints.size() - endSites, std::stoul(row.at("joints")));
    EXPECT_EQ(endSites, std::stoul(row.at("end_sites")));
    EXPECT_EQ(reading.document->columns, std::stoul(row.at("channels")));
    EXPECT_EQ(reading.document->frames, std::stoul(row.at("rows")));
    EXPECT_EQ(reading.document->values.size(), reading.document->columns * reading.document->frames);
    if (!row.at("frame_time").empty()) {
        EXPECT_EQ(reading.document->frameTime, numberIn(row.at("frame_time")));
    }
    EXPECT_EQ(reading.document->joints.front().name, row.at("root"));
}

std::size_t deltasBelowTheRoot(const KivReader::MotionDocument& document)
{
    std::size_t deltas = 0;
    for (std::size_t i = 1; i < document.joints.size(); ++i)
        deltas += document.joints[i].positionsAreDeltas ? 1 : 0;
    return deltas;
}

TEST(RealFile, readsWithTheListedCountsAndConvention)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    const std::filesystem::path folder = KivTestSupport::motionLibrary() / "real";
    const std::vector<CsvRow> rows = readCsv(folder / "manifest.csv");
    EXPECT_GE(rows.size(), 27U);
    for (const CsvRow& row : rows) {
        SCOPED_TRACE(row.at("file"));
        const MotionReading reading = readFile(folder / row.at("file"));
        ASSERT_TRUE(reading.document) << reading.error.text();
        EXPECT_TRUE(reading.document->warnings.empty());
        expectCounts(reading, row);
        const bool deltas = row.at("position_convention") == "delta to OFFSET";
        EXPECT_EQ(deltasBelowTheRoot(*reading.document),
                  deltas ? std::stoul(row.at("nonroot_position_joints")) : 0U);
    }
}

}  // namespace
