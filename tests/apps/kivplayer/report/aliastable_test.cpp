#include "apps/kivplayer/report/aliastable.h"

#include <gmock/gmock.h>

#include <sstream>

#include "tests/apps/kivplayer/scratchfolder.h"

namespace {

using namespace KivPlayer;
using testing::HasSubstr;
using testing::Not;

LoadedActor actorWithNames()
{
    LoadedActor actor;
    actor.file = "a/walk.bvh";
    actor.name = "Ann";
    actor.profile.isHumanoid = true;
    actor.profile.renamed = {{"pelvis", "Hips"}, {"arm {l}", "LeftArm"}, {"a&b", "Head"}};
    actor.profile.evidence = {{"Hips", "pelvis", 0.9, {}}, {"Head", "a&b", 0.3, {}}};
    actor.profile.unmatched = {{"tail", {}}};
    actor.profile.matched = {"Hips", "Spine"};
    return actor;
}

class AliasTable : public ScratchFolder
{
};

TEST_F(AliasTable, saysWhyItCannotBeWritten)
{
    std::ostringstream said;
    Console console(said, Console::Verbosity::Quiet);
    writeAliasTable("/dev/null/own.profile", {{0, actorWithNames()}}, console);
    EXPECT_THAT(said.str(), HasSubstr("/dev/null/own.profile: error: cannot be written"));
}

TEST_F(AliasTable, leavesOutNamesThatWouldBeReadAsSomethingElse)
{
    const std::string table = aliasTableOf(actorWithNames());
    EXPECT_THAT(table, Not(HasSubstr("name arm {l}")));
    EXPECT_THAT(table, HasSubstr("# arm {l} cannot be written in a table.\n"));
    EXPECT_THAT(table, HasSubstr("when pelvis & tail & Hips & Spine\n"));
}

TEST_F(AliasTable, listsWhatWasTakenForWhatAndCallsAGuessAGuess)
{
    const std::string table = aliasTableOf(actorWithNames());
    EXPECT_THAT(table, HasSubstr("dialect Ann\n"));
    EXPECT_THAT(table, HasSubstr("Spine\nname pelvis = Hips\n"));
    EXPECT_THAT(table, HasSubstr("# The next one is a guess.\nname a&b = Head\n"));
    EXPECT_THAT(table, HasSubstr("name tail = -\n"));
}

TEST_F(AliasTable, isObeyedWhenItIsPassedBack)
{
    KivReader::MotionDocument document;
    for (const char* name : {"pelvis", "tail"}) {
        document.joints.emplace_back();
        document.joints.back().name = name;
    }
    LoadedActor chain = actorWithNames();
    chain.profile.renamed = {{"pelvis", "Hips"}};
    chain.profile.matched.clear();
    KivReader::ProfileOptions options;
    options.tableFile = write("own.profile", aliasTableOf(chain));
    EXPECT_NO_THROW(KivReader::profileMotion(document, options)) << "each of its lines is understood";
}

}  // namespace
