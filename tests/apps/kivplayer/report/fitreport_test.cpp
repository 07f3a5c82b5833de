#include "apps/kivplayer/report/fitreport.h"

#include <gtest/gtest.h>

namespace {

using KivPlayer::fitReport;
using KivPlayer::nearestName;

const std::vector<std::string> kKnown{"Hips", "Spine", "LeftUpLeg", "LeftLeg", "RightUpLeg", "Head"};

TEST(NearestName, isEmptyWhereNothingIsNear)
{
    EXPECT_EQ(nearestName("Tentacle", kKnown), "");
    EXPECT_EQ(nearestName("Hips", {}), "");
}

TEST(NearestName, ignoresPrefixesSeparatorsAndCapitals)
{
    EXPECT_EQ(nearestName("mixamorig:LeftUpLeg", kKnown), "LeftUpLeg");
    EXPECT_EQ(nearestName("left_up_leg", kKnown), "LeftUpLeg");
    EXPECT_EQ(nearestName("HEAD", kKnown), "Head");
}

TEST(NearestName, forgivesATypingError)
{
    EXPECT_EQ(nearestName("LeftUpLge", kKnown), "LeftUpLeg");
    EXPECT_EQ(nearestName("Hip", kKnown), "Hips");
}

TEST(FitReport, listsErrorsWithTheirPlaceAndNullWhereThereIsNone)
{
    const nlohmann::ordered_json report =
        fitReport({}, KivPlayer::AvatarFile(), {{"a.bvh", 12, 5, "bad"}, {"b.bvh", 0, 0, "no such file"}});
    EXPECT_EQ(report.dump(),
              R"({"actors":[],"errors":[{"file":"a.bvh","line":12,"column":5,"message":"bad"},)"
              R"({"file":"b.bvh","line":null,"column":null,"message":"no such file"}]})");
}

}  // namespace
