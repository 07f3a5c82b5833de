#include "apps/kivplayer/report/summary.h"

#include <gmock/gmock.h>

namespace {

using KivPlayer::summaryOf;
using testing::HasSubstr;
using testing::Not;

nlohmann::ordered_json actor()
{
    return nlohmann::ordered_json::parse(R"({
        "file": "a/walk.bvh", "name": "Ann", "dialect": "smpl", "matched": ["Hips", "Head", "LeftHandRing1"],
        "unmatched": [{"joint": "Tail", "nearest": ["Spine", "Head"]}, {"joint": "Wing", "nearest": []}],
        "profile": {"humanoid": true, "reason": "", "renamed": [1, 2], "folded": [1], "inserted": [],
                    "reframed": [], "left": [1], "unit": "m", "unitReason": "170 cm high", "upAxis": "z",
                    "upReason": "", "hipWidth": 31.25, "hipWidthMeasured": 31.25, "hipWidthReason": ""},
        "pieces": {"attached": 3, "skipped": [1, 2, 3, 4]},
        "hipRatio": 0.98765, "handRatio": null, "frames": 12, "warnings": ["w"]})");
}

TEST(Summary, tellsWhyAFileIsReadAsItStands)
{
    nlohmann::ordered_json chain = actor();
    chain["dialect"] = nullptr;
    chain["profile"]["humanoid"] = false;
    chain["profile"]["reason"] = "there is no LeftArm";
    const std::string text = summaryOf(chain);
    EXPECT_THAT(text, HasSubstr("dialect unknown\n"));
    EXPECT_THAT(text, HasSubstr("read as it stands: there is no LeftArm\n"));
    EXPECT_THAT(text, Not(HasSubstr("renamed")));
}

TEST(Summary, countsWhatWasMatchedAndDone)
{
    const std::string text = summaryOf(actor());
    EXPECT_THAT(text, testing::StartsWith("kivplayer: Ann: a/walk.bvh, dialect smpl\n"));
    EXPECT_THAT(text,
                HasSubstr("matched 2 of 21 body joints, 3 joints in all; pieces attached 3, skipped 4\n"));
    EXPECT_THAT(text, HasSubstr("renamed 2, folded 1, inserted 0, reframed 0, left 1\n"));
    EXPECT_THAT(text, HasSubstr("unit m (170 cm high)\n"));
    EXPECT_THAT(text, HasSubstr("upright z\n"));
    EXPECT_THAT(text, HasSubstr("unmatched Tail (nearest: Spine), Wing\n"));
    EXPECT_THAT(text, HasSubstr("hip ratio 0.988, hand ratio none, frames 12, warnings 1\n"));
}

TEST(Summary, tellsOfHipsThatTheTorsoIsNotSizedBy)
{
    nlohmann::ordered_json wide = actor();
    EXPECT_THAT(summaryOf(wide), Not(HasSubstr("torso")));
    wide["profile"]["hipWidthMeasured"] = 20.5;
    wide["profile"]["hipWidthReason"] = "too wide";
    EXPECT_THAT(summaryOf(wide), HasSubstr("torso sized as for hips 20.5 cm wide, not 31.2 cm (too wide)\n"));
}

TEST(Summary, namesOnlyTheFirstOfManyUnmatchedJoints)
{
    nlohmann::ordered_json tail = actor();
    for (int i = 0; i < 98; ++i)
        tail["unmatched"].push_back({{"joint", "Tail" + std::to_string(i)}, {"nearest", nullptr}});
    const std::string text = summaryOf(tail);
    EXPECT_THAT(text, HasSubstr("Tail3 and 94 more\n"));
    EXPECT_THAT(text, Not(HasSubstr("Tail4")));
}

}  // namespace
