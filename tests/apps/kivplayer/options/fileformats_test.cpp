#include "apps/kivplayer/options/fileformats.h"

#include <gtest/gtest.h>

namespace {

using namespace KivPlayer;

TEST(FileFormats, knowNothingOfOtherExtensions)
{
    for (const char* file : {"", "png", "a", "a.jpg", "a.png.", "a.mp4/b", ".png", "a.pngx"})
        EXPECT_EQ(formatOf(file), FileFormat::None) << file;
    for (const FileKind kind : {FileKind::Picture, FileKind::Video, FileKind::Table, FileKind::Scene})
        EXPECT_FALSE(isOfKind(FileFormat::None, kind));
}

TEST(FileFormats, areToldByTheLastExtensionWhateverItsCase)
{
    EXPECT_EQ(formatOf("walk.PNG"), FileFormat::Png);
    EXPECT_EQ(formatOf("a.mp4.png"), FileFormat::Png);
    EXPECT_EQ(formatOf("folder.png/walk.MkV"), FileFormat::Matroska);
}

TEST(FileFormats, areOfOneKindEach)
{
    EXPECT_TRUE(isOfKind(formatOf("a.gif"), FileKind::Video));
    EXPECT_FALSE(isOfKind(formatOf("a.gif"), FileKind::Picture));
    EXPECT_TRUE(isOfKind(formatOf("a.csv"), FileKind::Table));
    EXPECT_TRUE(isOfKind(formatOf("a.osgt"), FileKind::Scene));
}

TEST(FileFormats, areListedForPeople)
{
    EXPECT_EQ(extensionsOf({}), "");
    EXPECT_EQ(extensionsOf({FileKind::Picture}, " or "), ".png");
    EXPECT_EQ(extensionsOf({FileKind::Video}), ".mp4, .mkv, .webm, .gif");
    EXPECT_EQ(extensionsOf({FileKind::Scene, FileKind::Table}, " or "), ".csv, .osgb or .osgt");
}

}  // namespace
