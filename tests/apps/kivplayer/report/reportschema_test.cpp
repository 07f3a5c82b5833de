// The report of actors against docs/report-schema.json.
#include <gmock/gmock.h>

#include <fstream>
#include <functional>

#include "apps/kivplayer/report/reportfile.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/apps/kivplayer/report/schemacheck.h"
#include "tests/support/builtpaths.h"

namespace {

using Json = nlohmann::ordered_json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// A chain of joints that is no body, with a cut last frame.
const char* const kChain =
    "HIERARCHY\nROOT Base\n{\n  OFFSET 0 0 0\n  CHANNELS 3 Xrotation Yrotation Zrotation\n  JOINT Tail\n  {\n"
    "    OFFSET 0 10 0\n    CHANNELS 0\n    End Site\n    {\n      OFFSET 0 5 0\n    }\n  }\n}\n"
    "MOTION\nFrames: 2\nFrame Time: 0.1\n0 0 0\n0 0\n";

class ReportSchema : public PlayerFixture
{
protected:
    void SetUp() override
    {
        PlayerFixture::SetUp();
        std::ifstream stream(std::string(KivTestSupport::kSourceFolder) + "/docs/report-schema.json");
        m_schema = Json::parse(stream);
    }

    Json reportOf(const std::vector<std::string>& files, const std::string& reading = "profile=auto")
    {
        KivPlayer::Session session(m_console, reading);
        EXPECT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
        for (unsigned i = 0; i < files.size(); ++i)
            session.load(i, files[i], "A");
        return Json::parse(KivPlayer::reportText(
            KivPlayer::fitReportOf(session.actors(), session.avatar(), m_console.errors())));
    }

    std::vector<std::string> complaintsAfter(Json report, const std::function<void(Json&)>& damage) const
    {
        damage(report.at("actors").at(0));
        return schemaComplaints(m_schema, report);
    }

    Json m_schema;
};

TEST_F(ReportSchema, refusesReportsThatSomethingIsWrongWith)
{
    const Json report = reportOf({sample("walk")});
    ASSERT_THAT(schemaComplaints(m_schema, report), IsEmpty());
    EXPECT_THAT(complaintsAfter(report, [](Json& actor) { actor.erase("dialect"); }),
                ElementsAre("/actors/0 lacks \"dialect\""));
    EXPECT_THAT(complaintsAfter(report, [](Json& actor) { actor["mood"] = "good"; }),
                ElementsAre("/actors/0 has an unknown mood"));
    EXPECT_THAT(complaintsAfter(report, [](Json& actor) { actor["hipRatio"] = "1"; }),
                ElementsAre(StartsWith("/actors/0/hipRatio is no ")));
    EXPECT_THAT(complaintsAfter(report, [](Json& actor) { actor["frames"] = 0; }),
                ElementsAre("/actors/0/frames is below 1"));
    EXPECT_THAT(complaintsAfter(report, [](Json& actor) { actor["profile"]["upAxis"] = "w"; }),
                ElementsAre(StartsWith("/actors/0/profile/upAxis is none of ")));
    EXPECT_THAT(complaintsAfter(report, [](Json& actor) { actor["profile"]["centimetresPerUnit"] = 0; }),
                ElementsAre("/actors/0/profile/centimetresPerUnit is not above 0"));
    EXPECT_THAT(complaintsAfter(report, [](Json& actor) { actor["warnings"].push_back(7); }),
                ElementsAre("/actors/0/warnings/0 is no \"string\""));
}

TEST_F(ReportSchema, refusesARuleThatItsCheckerDoesNotKnow)
{
    EXPECT_THAT(schemaComplaints({{"pattern", "a*"}}, "b"), ElementsAre(HasSubstr("pattern")));
}

TEST_F(ReportSchema, isObeyedForMissingFilesAndSkeletonsThatAreNoBody)
{
    const Json report = reportOf({file("chain.bvh", kChain), (m_folder / "nobody.bvh").string()});
    EXPECT_THAT(schemaComplaints(m_schema, report), IsEmpty());
    const Json& actor = report.at("actors").at(0);
    EXPECT_EQ(actor.at("dialect"), nullptr);
    EXPECT_EQ(actor.at("profile").at("humanoid"), false);
    EXPECT_EQ(actor.at("humanoid"), false);
    EXPECT_EQ(actor.at("pieces").at("attached"), 0);
    EXPECT_THAT(actor.at("profile").at("reason").get<std::string>(), HasSubstr("without legs or arms"));
    EXPECT_EQ(actor.at("unmatched").at(0).at("joint"), "Base");
    EXPECT_EQ(report.at("errors").size(), 1u);
}

TEST_F(ReportSchema, givesWarningsWithFileLineAndColumn)
{
    const std::string chain = file("chain.bvh", kChain);
    const Json report = reportOf({chain});
    ASSERT_EQ(report.at("actors").at(0).at("warnings").size(), 1u) << m_said.str();
    EXPECT_THAT(report.at("actors").at(0).at("warnings").at(0).get<std::string>(),
                StartsWith(chain + ":20:1: "));
}

TEST_F(ReportSchema, isObeyedByEverySampleAndWithTheProfileOff)
{
    for (const char* reading : {"profile=auto", "profile=off"}) {
        const Json report = reportOf({sample("walk"), sample("wave"), sample("juggle")}, reading);
        EXPECT_THAT(schemaComplaints(m_schema, report), IsEmpty()) << reading;
        EXPECT_EQ(report.at("actors").size(), 3u);
        EXPECT_EQ(report.at("actors").at(0).at("profile").at("humanoid"),
                  reading == std::string("profile=auto"));
    }
}

TEST_F(ReportSchema, tellsOfRealFilesWhatWasDoneToThem)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    const Json report = reportOf({(KivTestSupport::motionLibrary() / "real/cmu_mb_01_01.bvh").string()});
    ASSERT_EQ(report.at("actors").size(), 1u) << m_said.str();
    EXPECT_THAT(schemaComplaints(m_schema, report), IsEmpty());
    const Json& actor = report.at("actors").at(0);
    EXPECT_EQ(actor.at("dialect"), "cmu-mb");
    EXPECT_EQ(actor.at("profile").at("unit"), "cmu");
    EXPECT_FALSE(actor.at("profile").at("renamed").empty());
    EXPECT_FALSE(actor.at("profile").at("folded").empty());
    EXPECT_FALSE(actor.at("profile").at("inserted").empty());
}

}  // namespace
