#include "apps/kivplayer/output/contactsheet.h"

#include <gmock/gmock.h>

#include "apps/kivplayer/output/picturefile.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"

namespace {

using testing::HasSubstr;

class ContactSheet : public PlayerFixture
{
protected:
    KivPlayer::ExitCode make(const std::vector<std::string>& motions)
    {
        KivPlayer::Options options;
        options.root = KivTestSupport::kRuntimeRoot;
        options.motions = motions;
        options.contactSheet = (m_folder / "sheets").string();
        options.moments = 2;
        options.width = 60;
        options.height = 80;
        options.samples = 1;
        return KivPlayer::makeContactSheet(options, m_console);
    }

    osg::ref_ptr<osg::Image> made(const std::string& name) const
    {
        return KivPlayer::readPicture((m_folder / "sheets" / name).string());
    }
};

TEST_F(ContactSheet, leavesABrokenMotionOutAndNamesIt)
{
    const std::string broken = file("broken.bvh", "HIERARCHY\nROOT\n");
    EXPECT_EQ(make({broken, sample("walk"), broken}), KivPlayer::ExitFailed);
    EXPECT_THAT(m_said.str(), HasSubstr("broken.bvh:"));
    EXPECT_EQ(made("broken.png"), nullptr);
    const auto row = made("walk.png");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->s(), 120);
    EXPECT_EQ(row->t(), 80);
    ASSERT_NE(made("contact-sheet.png"), nullptr);
    EXPECT_EQ(made("contact-sheet.png")->t(), 80);
}

TEST_F(ContactSheet, writesNoSheetOfNothing)
{
    EXPECT_EQ(make({(m_folder / "nobody.bvh").string()}), KivPlayer::ExitFailed);
    EXPECT_EQ(made("contact-sheet.png"), nullptr);
}

TEST_F(ContactSheet, picturesOneMotionAfterTheOtherAndTellsEqualNamesApart)
{
    EXPECT_EQ(make({sample("walk"), sample("wave"), sample("walk")}), KivPlayer::ExitDone) << m_said.str();
    const auto first = made("walk.png");
    const auto other = made("wave.png");
    const auto again = made("walk-2.png");
    ASSERT_TRUE(first && other && again);
    EXPECT_GT(KivPlayer::comparePictures(*first, *other).worstTile, 6.0) << "another motion";
    const auto sheet = made("contact-sheet.png");
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->s() * sheet->t(), 3 * 120 * 80) << "three rows below each other";
}

}  // namespace
