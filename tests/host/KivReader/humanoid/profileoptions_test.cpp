#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <osg/Node>
#include <osg/ref_ptr>
#include <osgDB/Options>

#include <string>

#include "KivReader/humanoidprofile.h"
#include "KivReader/readerwriterbvh.h"
#include "tests/support/motionlibrary.h"

namespace {

using namespace KivReader;
using testing::HasSubstr;

TEST(ProfileOptions, refuseWhatCannotBeObeyedAndSayWhich)
{
    for (const std::string word : {"up=w", "up=", "unit=0", "unit=-1", "unit=ell", "unit=nan", "profile="}) {
        SCOPED_TRACE(word);
        std::string error;
        profileOptionsFrom("something " + word + " more", error);
        EXPECT_THAT(error, HasSubstr("'" + word + "'"));
    }
}

TEST(ProfileOptions, areOffAndOpenWhereNothingIsSaid)
{
    std::string error = "old";
    const ProfileOptions options = profileOptionsFrom("quality=high fast", error);
    EXPECT_EQ(error, "");
    EXPECT_EQ(options.use, ProfileOptions::Use::Off);
    EXPECT_EQ(options.unit, 0.0);
    EXPECT_EQ(options.up, ProfileOptions::Up::Auto);
    EXPECT_FALSE(options.firstFrameIsRest);
}

TEST(ProfileOptions, areTakenFromWords)
{
    std::string error;
    const ProfileOptions options =
        profileOptionsFrom(" profile=auto\tunit=INCH up=Z firstFrameIsRest ", error);
    EXPECT_EQ(error, "");
    EXPECT_EQ(options.use, ProfileOptions::Use::On);
    EXPECT_EQ(options.tableFile, "");
    EXPECT_EQ(options.unit, 2.54);
    EXPECT_EQ(options.up, ProfileOptions::Up::Z);
    EXPECT_TRUE(options.firstFrameIsRest);
}

TEST(ProfileOptions, knowUnitsByNameAndByNumber)
{
    struct
    {
        const char* word;
        double centimetres;
    } const rows[] = {{"cm", 1.0},    {"m", 100.0},         {"mm", 0.1},  {"dm", 10.0},
                      {"inch", 2.54}, {"cmu", 2.54 / 0.45}, {"3.5", 3.5}, {"auto", 0.0}};
    for (const auto& row : rows) {
        std::string error;
        EXPECT_DOUBLE_EQ(profileOptionsFrom(std::string("unit=") + row.word, error).unit, row.centimetres)
            << row.word;
        EXPECT_EQ(error, "");
    }
}

TEST(ProfileOptions, takeAPathWithBlanksInQuotes)
{
    std::string error;
    const ProfileOptions options = profileOptionsFrom("profile=\"/my tables/one.profile\" up=y", error);
    EXPECT_EQ(error, "");
    EXPECT_EQ(options.use, ProfileOptions::Use::On);
    EXPECT_EQ(options.tableFile, "/my tables/one.profile");
    EXPECT_EQ(options.up, ProfileOptions::Up::Y);
}

bool readWith(const std::string& words, const std::string& text, osg::ref_ptr<osg::Node>& node)
{
    const osg::ref_ptr<osgDB::Options> options = new osgDB::Options(words);
    osg::Node* rawNode = nullptr;
    KivAnimation::Animation* rawAnimation = nullptr;
    std::string name = "7";
    const bool isRead =
        ReaderWriterBVH::readBVHNode(text, options.get(), &rawNode, &rawAnimation, name, true);
    node = rawNode;
    const osg::ref_ptr<KivAnimation::Animation> animation = rawAnimation;
    return isRead;
}

TEST(ProfileOptions, refuseATableThatIsNotThere)
{
    osg::ref_ptr<osg::Node> node;
    const std::string text = "HIERARCHY\nROOT Hips\n{\nOFFSET 0 0 0\nEnd Site\n{\nOFFSET 0 1 0\n}\n}\n";
    EXPECT_FALSE(readWith("profile=/no/such.profile", text, node));
    EXPECT_THAT(ReaderWriterBVH::lastError(), HasSubstr("/no/such.profile"));
    EXPECT_TRUE(readWith("profile=off", text, node));
    EXPECT_EQ(ReaderWriterBVH::lastError(), "");
}

TEST(ProfileOptions, giveTheReaderAndTheQuestionTheSameAnswer)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    const std::string text =
        KivTestSupport::readWholeFile(KivTestSupport::motionLibrary() / "real" / "cmu_mb_01_01.bvh");
    osg::ref_ptr<osg::Node> node;
    ASSERT_TRUE(readWith("profile=auto", text, node));
    const ProfileRecord read = ReaderWriterBVH::lastProfile();
    const ProfileRecord asked = profileMotion(*readMotionDocument(text).document, ProfileOptions());
    EXPECT_TRUE(read.isHumanoid);
    EXPECT_EQ(read.dialect, "cmu-mb");
    EXPECT_EQ(read.dialect, asked.dialect);
    EXPECT_EQ(read.matched, asked.matched);
    EXPECT_EQ(read.left, asked.left);
    EXPECT_EQ(read.inserted.size(), asked.inserted.size());
    EXPECT_EQ(read.groundShift, asked.groundShift);
    EXPECT_FALSE(readWith("profile=auto", "nothing", node));
    EXPECT_FALSE(ReaderWriterBVH::lastProfile().isHumanoid);
}

}  // namespace
