#include "apps/kivplayer/report/summary.h"

#include <gmock/gmock.h>

namespace {

using KivPlayer::ActorFit;
using KivPlayer::summaryOf;
using testing::HasSubstr;
using testing::Not;

ActorFit actor()
{
    ActorFit fit;
    fit.file = "a/walk.bvh";
    fit.name = "Ann";
    fit.matched = {"Hips", "Head", "LeftHandRing1"};
    fit.unmatched = {{"Tail", {"Spine", "Head"}}, {"Wing", {}}};
    fit.profile.isHumanoid = true;
    fit.profile.dialect = "smpl";
    fit.profile.renamed.resize(2);
    fit.profile.folded.resize(1);
    fit.profile.left = {"Tail"};
    fit.profile.unit = "m";
    fit.profile.unitReason = "170 cm high";
    fit.profile.upAxis = "z";
    fit.profile.hipWidth = fit.profile.hipWidthMeasured = 31.25;
    fit.attached = 3;
    fit.skipped.resize(4);
    fit.hipRatio = 0.98765;
    fit.frames = 12;
    fit.warnings = {"w"};
    return fit;
}

TEST(Summary, tellsWhyAFileIsReadAsItStands)
{
    ActorFit chain = actor();
    chain.profile.dialect.clear();
    chain.profile.isHumanoid = false;
    chain.profile.whyNot = "there is no LeftArm";
    const std::string text = summaryOf(chain);
    EXPECT_THAT(text, HasSubstr("dialect unknown\n"));
    EXPECT_THAT(text, HasSubstr("read as it stands: there is no LeftArm\n"));
    EXPECT_THAT(text, Not(HasSubstr("renamed")));
}

TEST(Summary, saysThatAFileIsNotRecognisedAsAPerson)
{
    ActorFit dog = actor();
    dog.isPerson = dog.profile.isHumanoid = false;
    dog.profile.whyNot = "it stands on four legs";
    EXPECT_THAT(summaryOf(dog), HasSubstr("  not recognised as a person: it stands on four legs\n"));
}

TEST(Summary, callsLowConfidenceAGuess)
{
    ActorFit sure = actor();
    sure.profile.evidence = {{"Hips", "pelvis", 0.9, {}}, {"LeftArm", "j7", 0.42, {}}};
    EXPECT_THAT(summaryOf(sure), HasSubstr("  guessed LeftArm (j7, 0.42)\n"));
    sure.profile.evidence[1].confidence = KivReader::ProfileRecord::kGuess;
    EXPECT_THAT(summaryOf(sure), Not(HasSubstr("guessed")));
}

TEST(Summary, tellsTheRestPoseAndTheChecksThatFailed)
{
    ActorFit odd = actor();
    odd.profile.restPose = {"first frame", "it stands", 0.9};
    odd.profile.checks = {{"soles", false, 88.0, "degrees", "the feet stand 88° off level"},
                          {"height", true, 170.0, "cm", "the figure is 170 cm high"}};
    const std::string text = summaryOf(odd);
    EXPECT_THAT(text, HasSubstr("  rest pose first frame (it stands)\n"));
    EXPECT_THAT(text, HasSubstr("  check failed: the feet stand 88° off level\n"));
    EXPECT_THAT(text, Not(HasSubstr("170 cm high\n")));
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
    ActorFit wide = actor();
    EXPECT_THAT(summaryOf(wide), Not(HasSubstr("torso")));
    wide.profile.hipWidthMeasured = 20.5;
    wide.profile.hipWidthReason = "too wide";
    EXPECT_THAT(summaryOf(wide), HasSubstr("torso sized as for hips 20.5 cm wide, not 31.2 cm (too wide)\n"));
}

TEST(Summary, namesOnlyTheFirstOfManyUnmatchedJoints)
{
    ActorFit tail = actor();
    for (int i = 0; i < 98; ++i)
        tail.unmatched.push_back({"Tail" + std::to_string(i), {}});
    const std::string text = summaryOf(tail);
    EXPECT_THAT(text, HasSubstr("Tail3 and 94 more\n"));
    EXPECT_THAT(text, Not(HasSubstr("Tail4")));
}

}  // namespace
