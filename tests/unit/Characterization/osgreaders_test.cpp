#include "KivCharacterization/Characterization/osgreaders.h"

#include <gtest/gtest.h>
#include <osg/MatrixTransform>
#include <osg/Notify>
#include <osgDB/Registry>

#include <limits>
#include <new>
#include <stdexcept>

#include "tests/support/contentfolder.h"
#include "tests/support/figures.h"
#include "tests/support/otherplugin.h"

namespace {

using namespace KivCharacterization;
using namespace KivTestSupport;
using ReadResult = osgDB::ReaderWriter::ReadResult;

/// An avatar and a font that are sound, and readers that are asked for them.
class Reading : public testing::Test
{
protected:
    Reading() : content("osgreaders")
    {
        content.writeAvatar(*smallAvatar());
        content.copyFont();
    }

    ReadResult avatar() const { return ReaderWriterIVE().readNode(content.avatarFile().string(), nullptr); }
    ReadResult font() const
    {
        return ReaderWriterFreeType().readObject(content.fontFile().string(), nullptr);
    }
    std::string avatarRefused(const std::string& reason) const
    {
        return content.avatarFile().string() + ": " + reason;
    }

    ContentFolder content;
};

TEST_F(Reading, namesThePluginThatIsNotInstalled)
{
    const OtherPlugin noScenes("ive");
    const OtherPlugin noFonts("ttf");
    EXPECT_FALSE(avatar().success());
    EXPECT_EQ(avatar().message(), avatarRefused("OpenSceneGraph's plugin for .ive is not installed"));
    EXPECT_FALSE(font().success());
    EXPECT_EQ(font().message(),
              content.fontFile().string() + ": OpenSceneGraph's plugin for .ttf is not installed");
}

TEST_F(Reading, keepsInWhatAPluginThrows)
{
    const OtherPlugin throwing(
        "ive", [](const osgDB::Options*) -> ReadResult { throw std::length_error("a count is too large"); });
    EXPECT_FALSE(avatar().success());
    EXPECT_EQ(avatar().message(), avatarRefused("a count is too large"));
    const OtherPlugin shortOfMemory("ttf",
                                    [](const osgDB::Options*) -> ReadResult { throw std::bad_alloc(); });
    EXPECT_FALSE(font().success());
}

TEST_F(Reading, refusesASuccessWithoutAnObject)
{
    const auto nothing = [](const osgDB::Options*) {
        return ReadResult(static_cast<osg::Object*>(nullptr), ReadResult::FILE_LOADED);
    };
    const OtherPlugin emptyScene("ive", nothing);
    const OtherPlugin emptyFont("ttf", nothing);
    EXPECT_FALSE(avatar().success());
    EXPECT_EQ(avatar().message(), avatarRefused("the file holds no object"));
    EXPECT_FALSE(font().success());
}

TEST_F(Reading, refusesASceneThatIsNotSoundAndSaysWhy)
{
    const OtherPlugin unsound("ive", [](const osgDB::Options*) {
        const auto hips = avatarNode("Hips", osg::Vec3d(std::numeric_limits<double>::infinity(), 0, 0));
        return ReadResult(hips.get());
    });
    EXPECT_FALSE(avatar().success());
    EXPECT_EQ(avatar().message(), avatarRefused("the matrix of \"Hips\" is not finite"));
}

TEST_F(Reading, refusesAnEmptyFileAndOneThatIsTooLargeBeforeAPluginSeesThem)
{
    bool asked = false;
    const OtherPlugin watched("ive", [&asked](const osgDB::Options*) {
        asked = true;
        return ReadResult(new osg::Group);
    });
    std::filesystem::resize_file(content.avatarFile(), (std::uintmax_t{1} << 30) + 1);
    EXPECT_EQ(avatar().message(), avatarRefused("the file is too large"));
    std::filesystem::resize_file(content.avatarFile(), 0);
    EXPECT_EQ(avatar().message(), avatarRefused("the file is empty"));
    EXPECT_FALSE(asked);
    std::filesystem::resize_file(content.avatarFile(), std::uintmax_t{1} << 30);
    EXPECT_TRUE(avatar().success());
    EXPECT_TRUE(asked);
}

TEST_F(Reading, handsOnWhatThePluginsRead)
{
    EXPECT_TRUE(avatar().success());
    EXPECT_TRUE(avatar().getNode());
    EXPECT_TRUE(font().success());
    EXPECT_TRUE(font().getObject());
}

TEST_F(Reading, saysItsReasonToTheLogOnlyWhereWarningsAreWanted)
{
    const OtherPlugin noScenes("ive");
    const osg::NotifySeverity before = osg::getNotifyLevel();
    for (const bool wanted : {true, false}) {
        osg::setNotifyLevel(wanted ? osg::WARN : osg::FATAL);
        testing::internal::CaptureStderr();
        avatar();
        EXPECT_EQ(!testing::internal::GetCapturedStderr().empty(), wanted);
    }
    osg::setNotifyLevel(before);
}

}  // namespace
