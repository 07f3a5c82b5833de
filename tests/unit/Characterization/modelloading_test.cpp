#include "KivCharacterization/Characterization/modelloading.h"

#include <gtest/gtest.h>

#include "KivCharacterization/Characterization/osgreaders.h"
#include "tests/support/contentfolder.h"
#include "tests/support/figures.h"
#include "tests/support/freshhost.h"
#include "tests/support/manageraccess.h"
#include "tests/support/otherplugin.h"

namespace {

using namespace KivCharacterization;
using namespace KivTestSupport;
using KivErrorOperator::TavrinCommonErrorMsg;

const char* const kLoadFailed =
    "File Name: KivCharacterization\\Characterization\\characterizationmanager\t Line Number: "
    "122\"can not successfully load the ive file!\"";
const char* const kAnalysisFailed =
    "File Name: KivCharacterization\\Characterization\\characterizationmanager\t Line Number: "
    "161\"can not successfully analysis the ive file!\"";

class Loading : public FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        content = std::make_unique<ContentFolder>("loading");
    }

    static CharacterizationManager& manager() { return *CharacterizationManager::instance(); }
    static std::vector<std::string> history() { return TavrinCommonErrorMsg::instance()->history(); }
    std::string avatarLine(const std::string& outcome) const
    {
        return "Read file :" + content->root() + "/Data/IVE/avatar.ive" + outcome;
    }
    std::string fontLine(const std::string& outcome) const
    {
        return "Read file :" + content->root() + "/Data/Font/arial.ttf" + outcome;
    }

    std::unique_ptr<ContentFolder> content;
};

TEST_F(Loading, reportsAMissingAvatarAndAMissingFont)
{
    EXPECT_FALSE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history(), (std::vector<std::string>{content->root(), kLoadFailed, avatarLine("failed!"),
                                                   fontLine("failed!")}));
    EXPECT_EQ(TavrinCommonErrorMsg::instance()->GetLastErrorMsg().message, fontLine("failed!"));
    CharacterizationManagerAccess access(manager());
    EXPECT_TRUE(access.avatars.empty());
    EXPECT_TRUE(access.fonts.empty());
}

TEST_F(Loading, answersWithTheFontAloneWhenTheAvatarIsMissing)
{
    content->copyFont();
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history()[2], avatarLine("failed!"));
    EXPECT_EQ(history()[3], fontLine("successed!"));
}

TEST_F(Loading, refusesAnEmptyAvatarAndOneThatIsNoScene)
{
    content->writeAvatarBytes("");
    manager().initalCharacterModel(content->root());
    EXPECT_EQ(history()[1], kLoadFailed);
    content->writeAvatarBytes("this is no scene at all, but some bytes of text");
    EXPECT_FALSE(CharacterizationManagerAccess(manager()).loadIveFile(content->avatarFile().string()));
}

TEST_F(Loading, refusesATruncatedAvatar)
{
    content->writeAvatar(*smallAvatar());
    const auto size = std::filesystem::file_size(content->avatarFile());
    std::filesystem::resize_file(content->avatarFile(), size / 2);
    EXPECT_FALSE(CharacterizationManagerAccess(manager()).loadIveFile(content->avatarFile().string()));
    EXPECT_EQ(TavrinCommonErrorMsg::instance()->GetLastErrorMsg().message, kLoadFailed);
}

TEST_F(Loading, keepsAnAvatarWhoseRootIsNoGroupWithEmptyTables)
{
    content->copyFont();
    const osg::ref_ptr<osg::Node> noGroup = new osg::Node;
    content->writeAvatar(*noGroup);
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history()[1], kAnalysisFailed);
    EXPECT_EQ(history()[2], avatarLine("failed!"));

    // It counts as loaded from now on.
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history()[5], avatarLine("successed!"));
    CharacterizationManagerAccess access(manager());
    ASSERT_EQ(access.avatars.size(), 1u);
    EXPECT_TRUE(access.avatars.begin()->second.jointMap.empty());
    EXPECT_TRUE(access.avatars.begin()->second.segmentMap.empty());
}

TEST_F(Loading, analysesTheAvatarUnderItsFullPath)
{
    content->writeAvatar(*smallAvatar());
    content->copyFont();
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history(),
              (std::vector<std::string>{content->root(), avatarLine("successed!"), fontLine("successed!")}));
    CharacterizationManagerAccess access(manager());
    ASSERT_EQ(access.avatars.count(content->root() + "/Data/IVE/avatar.ive"), 1u);
    const CommonTypeDef::SIveInfo& info = access.avatars.begin()->second;
    EXPECT_TRUE(info.node.valid());
    EXPECT_EQ(info.jointMap.count("Hips"), 1u);
    EXPECT_EQ(info.segmentMap.count("Hips&LeftUpLeg"), 1u);
    EXPECT_TRUE(info.skeletonExtra.empty());
    EXPECT_EQ(access.fonts.size(), 1u);
    EXPECT_EQ(access.rootDir, content->root());
}

TEST_F(Loading, readsNothingTheSecondTimeButReportsTwoSuccesses)
{
    content->writeAvatar(*smallAvatar());
    content->copyFont();
    manager().initalCharacterModel(content->root());
    std::filesystem::remove(content->avatarFile());
    std::filesystem::remove(content->fontFile());
    TavrinCommonErrorMsg::instance()->clear();
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history(),
              (std::vector<std::string>{content->root(), avatarLine("successed!"), fontLine("successed!")}));
}

TEST_F(Loading, looksUnderTheWorkingDirectoryWhenTheRootIsEmptyAndDoesNotStoreIt)
{
    content->writeAvatar(*smallAvatar());
    content->copyFont();
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(content->root());
    const bool loaded = manager().initalCharacterModel("");
    const std::string workingDir = std::filesystem::current_path().string();
    std::filesystem::current_path(before);
    EXPECT_TRUE(loaded);
    EXPECT_EQ(history(), (std::vector<std::string>{
                             workingDir, "Read file :" + workingDir + "/Data/IVE/avatar.ivesuccessed!",
                             "Read file :" + workingDir + "/Data/Font/arial.ttfsuccessed!"}));
    EXPECT_EQ(CharacterizationManagerAccess(manager()).rootDir, "");
}

TEST_F(Loading, keepsTheDoubleSlashOfARootThatEndsInOne)
{
    content->writeAvatar(*smallAvatar());
    content->copyFont();
    EXPECT_TRUE(manager().initalCharacterModel(content->root() + "/"));
    EXPECT_EQ(history()[1], "Read file :" + content->root() + "//Data/IVE/avatar.ivesuccessed!");
    EXPECT_EQ(history()[2], "Read file :" + content->root() + "//Data/Font/arial.ttfsuccessed!");
    EXPECT_EQ(
        CharacterizationManagerAccess(manager()).avatars.count(content->root() + "//Data/IVE/avatar.ive"),
        1u);
}

TEST_F(Loading, refusesAFontThatIsNoFont)
{
    content->writeFontBytes("no font");
    EXPECT_FALSE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history().back(), fontLine("failed!"));
}

TEST_F(Loading, takesAFontFileThatHoldsSomethingElseAsLoadedWithoutAFont)
{
    content->copyFont();
    const OtherPlugin noFont("ttf", [](const osgDB::Options*) { return new osg::Node; });
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    const FontTable& fonts = CharacterizationManagerAccess(manager()).fonts;
    ASSERT_EQ(fonts.count(content->root() + "/Data/Font/arial.ttf"), 1u);
    EXPECT_FALSE(fonts.begin()->second.valid());
}

TEST_F(Loading, asksForTheFontToBeCached)
{
    content->copyFont();
    int hint = 0;
    const OtherPlugin font("ttf", [&hint](const osgDB::Options* options) {
        hint = options ? options->getObjectCacheHint() : -1;
        return new osgText::Font;
    });
    manager().initalCharacterModel(content->root());
    EXPECT_EQ(hint, 16);
}

TEST_F(Loading, doesNotSearchOtherFoldersForAMissingFile)
{
    content->writeAvatar(*smallAvatar());
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(content->avatarFile().parent_path());
    const bool found = ReaderWriterIVE().readNode("/nowhere/avatar.ive", nullptr).success();
    std::filesystem::current_path(before);
    EXPECT_FALSE(found);
}

}  // namespace
