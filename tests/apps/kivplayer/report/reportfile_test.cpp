#include "apps/kivplayer/report/reportfile.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>
#include <sstream>

namespace {

using namespace KivPlayer;
using Json = nlohmann::ordered_json;
using testing::HasSubstr;

Json jsonOf(const FitReport& report)
{
    return Json::parse(reportText(report));
}

TEST(ReportFile, saysWhyItCannotBeWritten)
{
    std::ostringstream said;
    Console console(said, Console::Verbosity::Normal);
    writeReport("/dev/null/report.json", FitReport(), console);
    EXPECT_THAT(said.str(), HasSubstr("/dev/null/report.json: error: cannot be written"));
}

TEST(ReportFile, hasANumberWhereverOneIsPromised)
{
    const double nothing = std::numeric_limits<double>::quiet_NaN();
    const double endless = std::numeric_limits<double>::infinity();
    ActorFit actor;
    actor.profile.height = actor.profile.hipWidth = actor.profile.hipWidthMeasured = nothing;
    actor.profile.groundShift = -endless;
    actor.profile.centimetresPerUnit = endless;
    actor.frameTime = nothing;
    actor.segments = {{"Hips&Spine", nothing, endless, std::nullopt}};
    const Json json = jsonOf({{actor}, {}}).at("actors").at(0);
    for (const char* name : {"height", "hipWidth", "hipWidthMeasured", "groundShift"})
        EXPECT_EQ(json.at("profile").at(name), 0.0) << name;
    EXPECT_EQ(json.at("profile").at("centimetresPerUnit"), 1.0);
    EXPECT_EQ(json.at("frameTime"), 0.0);
    EXPECT_EQ(json.at("segments").at(0).at("avatarLength"), 0.0);
    EXPECT_EQ(json.at("segments").at(0).at("factor"), nullptr);
    EXPECT_EQ(json.at("hipRatio"), nullptr);
}

TEST(ReportFile, replacesBytesThatAreNoText)
{
    ActorFit actor;
    actor.name = "A\xff";
    EXPECT_EQ(jsonOf({{actor}, {}}).at("actors").at(0).at("name"), "A\xEF\xBF\xBD");
}

TEST(ReportFile, listsErrorsWithTheirPlaceAndNullWhereThereIsNone)
{
    const Json json = jsonOf({{}, {{"a.bvh", 12, 5, "bad"}, {"b.bvh", 0, 0, "no such file"}}});
    EXPECT_EQ(json.dump(), R"({"actors":[],"errors":[{"file":"a.bvh","line":12,"column":5,"message":"bad"},)"
                           R"({"file":"b.bvh","line":null,"column":null,"message":"no such file"}]})");
}

TEST(ReportFile, tellsWhatReadingDid)
{
    ActorFit actor;
    actor.profile.isHumanoid = true;
    actor.profile.dialect = "smpl";
    actor.profile.renamed = {{"L_Hip", "LeftUpLeg"}};
    actor.profile.evidence = {{"LeftUpLeg", "L_Hip", 0.8, {"its words"}}};
    actor.profile.restPose = {"zero pose", "it stands", 0.9};
    actor.profile.checks = {{"soles", false, 88.0, "degrees", "the feet are off level"}};
    actor.profile.folded = {{"twist", "LeftArm"}};
    actor.profile.inserted = {{"Spine3", "Spine2", "Spine2&Neck"}};
    actor.unmatched = {{"Tail", {"Spine", "Head"}}};
    const Json json = jsonOf({{actor}, {}}).at("actors").at(0);
    EXPECT_EQ(json.at("dialect"), "smpl");
    EXPECT_EQ(json.at("evidence").at(0).at("fileJoint"), "L_Hip");
    EXPECT_EQ(json.at("restPose").at("choice"), "zero pose");
    EXPECT_EQ(json.at("checks").at(0).at("passed"), false);
    EXPECT_EQ(json.at("profile").at("renamed").at(0).at("to"), "LeftUpLeg");
    EXPECT_EQ(json.at("profile").at("folded").at(0).at("into"), "LeftArm");
    EXPECT_EQ(json.at("profile").at("inserted").at(0).at("along"), "Spine2&Neck");
    EXPECT_EQ(json.at("unmatched").at(0).at("nearest").dump(), R"(["Spine","Head"])");
}

}  // namespace
