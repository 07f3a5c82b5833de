#include "apps/kivplayer/output/motiontable.h"

#include <gmock/gmock.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <locale>
#include <map>
#include <string>
#include <vector>

#include "apps/kivplayer/support/numbers.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"

namespace {

using KivPlayer::Progress;
using KivPlayer::Session;
using testing::ElementsAre;
using testing::HasSubstr;

/// A standing person, 175 cm high, arms down; an end site and channels as a joint asks for.
const char* const kStanding = R"(HIERARCHY
ROOT Hips
{
  OFFSET 0 95 0
  CHANNELS 0
  JOINT LeftUpLeg { OFFSET 10 -5 0 CHANNELS 0 JOINT LeftLeg { OFFSET 0 -40 0 CHANNELS 0
    JOINT LeftFoot { OFFSET 0 -40 0 CHANNELS 0 End Site { OFFSET 0 -8 16 } } } }
  JOINT RightUpLeg { OFFSET -10 -5 0 CHANNELS 0 JOINT RightLeg { OFFSET 0 -40 0 CHANNELS 0
    JOINT RightFoot { OFFSET 0 -40 0 CHANNELS 0 End Site { OFFSET 0 -8 16 } } } }
  JOINT Neck { OFFSET 0 55 0 CHANNELS 0
    JOINT Head { OFFSET 0 10 0 CHANNELS 0 End Site { OFFSET 0 15 0 } }
    JOINT LeftArm { OFFSET 18 -5 0 CHANNELS 0 JOINT LeftForeArm { OFFSET 0 -30 0 CHANNELS 0
      JOINT LeftHand { OFFSET 0 -25 0 CHANNELS 0 End Site { OFFSET 0 -10 0 } } } }
    JOINT RightArm { OFFSET -18 -5 0 CHANNELS 0 JOINT RightForeArm { OFFSET 0 -30 0 CHANNELS 0
      JOINT RightHand { OFFSET 0 -25 0 CHANNELS 0 End Site { OFFSET 0 -10 0 } } } }
  }
}
)";

constexpr int kFrames = 100;
constexpr double kFrameTime = 0.01;
constexpr double kAnkle = 8.0;

struct Point
{
    double height;
    double forward;
};

/// Planted from frame 30 to 69, trembling at 50 cm/s in the middle of it; in the air before and after, where
/// it goes forward with 200 cm/s.
Point leftFootAt(int frame)
{
    const double tremble = frame >= 40 && frame < 60 && frame % 2 ? 0.5 : 0.0;
    if (frame < 30)
        return {kAnkle + 10.0 * std::sin(osg::PI * frame / 30.0), 2.0 * frame};
    if (frame < 70)
        return {kAnkle, 60.0 + tremble};
    return {kAnkle + 10.0 * std::sin(osg::PI * (frame - 69) / 31.0), 60.0 + 2.0 * (frame - 69)};
}

/// Comes down until frame 9, slides along the ground with 50 cm/s until frame 49, then stands.
Point rightFootAt(int frame)
{
    return {kAnkle + 2.0 * std::max(0, 10 - frame), 0.5 * std::min(frame, 49)};
}

/// A body that goes forward with 60 cm/s over those feet.
std::string plantedFoot()
{
    std::string text = "HIERARCHY\nROOT Hips\n{\n OFFSET 0 0 0\n CHANNELS 3 Xposition Yposition Zposition\n";
    for (const char* side : {"Left", "Right"})
        text +=
            " JOINT " + std::string(side) +
            "Foot { OFFSET 0 -80 0 CHANNELS 3 Xposition Yposition Zposition End Site { OFFSET 0 -5 15 } }\n";
    text += "}\nMOTION\nFrames: " + std::to_string(kFrames) + "\nFrame Time: 0.01\n";
    for (int frame = 0; frame < kFrames; ++frame) {
        const double along = 0.6 * frame;
        text += "0 95 " + KivPlayer::numberText(along);
        for (const Point& foot : {leftFootAt(frame), rightFootAt(frame)})
            text += " 0 " + KivPlayer::numberText(foot.height - 95.0) + " " +
                    KivPlayer::numberText(foot.forward - along);
        text += "\n";
    }
    return text;
}

/// A table as it was written; texts in quotes are not taken apart.
struct Table
{
    std::vector<std::map<std::string, std::string>> rows;
    std::string header;

    explicit Table(const std::string& file)
    {
        std::ifstream stream(file);
        std::getline(stream, header);
        const std::vector<std::string> names = cellsOf(header);
        for (std::string line; std::getline(stream, line);) {
            const std::vector<std::string> cells = cellsOf(line);
            EXPECT_EQ(cells.size(), names.size());
            rows.emplace_back();
            for (std::size_t i = 0; i < std::min(cells.size(), names.size()); ++i)
                rows.back()[names[i]] = cells[i];
        }
    }

    static std::vector<std::string> cellsOf(const std::string& line)
    {
        std::vector<std::string> cells(1);
        for (const char letter : line)
            if (letter == ',')
                cells.emplace_back();
            else
                cells.back() += letter;
        return cells;
    }

    double number(std::size_t row, const std::string& column) const
    {
        return KivPlayer::parseNumber(rows.at(row).at(column)).value_or(std::nan(""));
    }
    std::string contacts(const std::string& column) const
    {
        std::string all;
        for (const auto& row : rows)
            all += row.at(column);
        return all;
    }
};

class MotionTable : public PlayerFixture
{
protected:
    using Range = std::optional<std::pair<double, double>>;

    std::string write(const std::string& name, const Range& range = {})
    {
        Progress progress(m_said, Progress::Style::Silent, "export", 1);
        return KivPlayer::writeMotionTable((m_folder / name).string(), m_session, range, progress);
    }
    Table written(const Range& range = {})
    {
        EXPECT_EQ(write("table.csv", range), "");
        return Table((m_folder / "table.csv").string());
    }
    void SetUp() override
    {
        PlayerFixture::SetUp();
        ASSERT_TRUE(m_session.start(KivTestSupport::kRuntimeRoot));
    }

    Session m_session{m_console, "profile=off"};
};

TEST_F(MotionTable, saysThatTheDiskIsFullAndLeavesNothing)
{
    ASSERT_TRUE(m_session.load(0, sample("walk"), "walk"));
    std::filesystem::create_symlink("/dev/full", m_folder / "table.csv.part");
    EXPECT_THAT(write("table.csv"), HasSubstr("No space left on device"));
    EXPECT_TRUE(std::filesystem::is_empty(m_folder));
}

TEST_F(MotionTable, saysWhereASkeletonAtRestStandsAndWhereItsWeightIs)
{
    ASSERT_TRUE(m_session.load(0, file("standing.bvh", kStanding), "Ann")) << m_said.str();
    const Table table = written();
    ASSERT_EQ(table.rows.size(), 1u);
    EXPECT_EQ(table.header.substr(0, 64), "actor,name,frame,time_s,Hips_x_cm,Hips_y_cm,Hips_z_up_cm,LeftUpL");
    EXPECT_EQ(table.rows[0].at("actor") + table.rows[0].at("name") + table.rows[0].at("frame") +
                  table.rows[0].at("time_s"),
              "0Ann00");
    EXPECT_EQ(table.number(0, "LeftHand_x_cm"), 18.0);
    EXPECT_EQ(table.number(0, "LeftHand_z_up_cm"), 90.0);
    EXPECT_EQ(table.number(0, "LeftFootEnd_y_cm"), -16.0) << "forward in the file is -y in the scene";
    // By hand, masses in percent after de Leva, heights of the segments' centres in cm:
    //   head 6.81 at 162.7; trunk 43.015 at 119.7; of each side: upper arm 2.63 at 127.72, forearm 1.5 at
    //   103.575, hand 0.585 at 82.31, thigh 14.47 at 74.6, shank 4.57 at 32.24, foot 1.33 at 6.632:
    //   9806.95612 / 99.995 = 98.07446. Forward only the feet: 2 * 1.33 * 0.421 * 16 / 99.995 = 0.17919.
    EXPECT_NEAR(table.number(0, "centre_of_mass_x_cm"), 0.0, 1e-4);
    EXPECT_NEAR(table.number(0, "centre_of_mass_y_cm"), -0.17919, 1e-4);
    EXPECT_NEAR(table.number(0, "centre_of_mass_z_up_cm"), 98.07446, 1e-4);
}

TEST_F(MotionTable, hasAFootInContactWhileItIsPlantedAndNotOtherwise)
{
    ASSERT_TRUE(m_session.load(0, file("planted.bvh", plantedFoot()), "Ann")) << m_said.str();
    const Table table = written();
    ASSERT_EQ(table.rows.size(), static_cast<std::size_t>(kFrames));
    // It arrives at frame 30 with the speed of the swing, so the first frame that it stands in is 31. In the
    // air at the very first frame nothing is known of speed: there the foot is on the ground and counts as
    // standing.
    const std::string left = table.contacts("LeftFoot_contact");
    EXPECT_EQ(left, "1" + std::string(30, '0') + std::string(39, '1') + std::string(30, '0'));
    const std::string right = table.contacts("RightFoot_contact");
    EXPECT_EQ(right, std::string(50, '0') + std::string(50, '1')) << "what slides does not stand";
}

TEST_F(MotionTable, followsTheFileFrameByFrameWithinARange)
{
    ASSERT_TRUE(m_session.load(0, file("planted.bvh", plantedFoot()), "Ann"));
    const Table table = written(std::make_pair(0.3, 0.5));
    ASSERT_EQ(table.rows.size(), 21u);
    EXPECT_EQ(KivPlayer::rowsOfMotionTable(m_session, std::make_pair(0.3, 0.5)), 21u);
    EXPECT_EQ(table.rows.front().at("frame"), "30");
    EXPECT_EQ(table.rows.front().at("time_s"), "0.3");
    EXPECT_EQ(table.rows.back().at("time_s"), "0.5");
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        const Point foot = leftFootAt(static_cast<int>(row) + 30);
        EXPECT_NEAR(table.number(row, "LeftFoot_z_up_cm"), foot.height, 1e-3);
        EXPECT_NEAR(table.number(row, "LeftFoot_y_cm"), -foot.forward, 1e-3);
    }
    EXPECT_THAT(table.contacts("LeftFoot_contact"), testing::StartsWith("01"))
        << "judged with what was before";
}

TEST_F(MotionTable, movesTheRowsOfAnActorThatStartsLaterAndChangesNothingElseInThem)
{
    ASSERT_TRUE(m_session.load(0, file("planted.bvh", plantedFoot()), "Ann"));
    const Table before = written();
    ASSERT_TRUE(m_session.setOffset(0, 0.2537));
    const Table after = written();
    ASSERT_EQ(after.rows.size(), before.rows.size());
    for (std::size_t row = 0; row < before.rows.size(); ++row) {
        auto expected = before.rows[row];
        EXPECT_NEAR(after.number(row, "time_s"), before.number(row, "time_s") + 0.2537, 1e-9);
        expected["time_s"] = after.rows[row].at("time_s");
        EXPECT_EQ(after.rows[row], expected) << row;
    }
    const Table part = written(std::make_pair(0.5, 0.6));
    ASSERT_EQ(part.rows.size(), 10u) << "the range is one of the shared clock";
    EXPECT_EQ(part.rows.front().at("frame"), "25");
    EXPECT_EQ(part.rows.front().at("time_s"), "0.5037");
}

TEST_F(MotionTable, hasNoRowForFramesBeforeTheClockBegins)
{
    ASSERT_TRUE(m_session.load(0, file("planted.bvh", plantedFoot()), "Ann"));
    const Table before = written();
    ASSERT_TRUE(m_session.setOffset(0, -0.3));
    const Table after = written();
    ASSERT_EQ(after.rows.size(), 70u);
    EXPECT_EQ(KivPlayer::rowsOfMotionTable(m_session, {}), 70u);
    EXPECT_EQ(after.rows.front().at("frame"), "30");
    EXPECT_EQ(after.rows.front().at("time_s"), "0");
    EXPECT_EQ(after.rows.front().at("LeftFoot_y_cm"), before.rows[30].at("LeftFoot_y_cm"));
    EXPECT_EQ(after.rows.front().at("LeftFoot_contact"), before.rows[30].at("LeftFoot_contact"));
    EXPECT_EQ(after.rows.back().at("time_s"), "0.69");
    ASSERT_TRUE(m_session.setOffset(0, -5.0));
    EXPECT_TRUE(written().rows.empty());
}

TEST_F(MotionTable, putsActorsBelowEachOtherAndLeavesEmptyWhatOneDoesNotHave)
{
    ASSERT_TRUE(m_session.load(0, file("planted.bvh", plantedFoot()), "Ann"));
    ASSERT_TRUE(m_session.load(3, file("standing.bvh", kStanding), "Bob"));
    const Table table = written();
    ASSERT_EQ(table.rows.size(), kFrames + 1u);
    EXPECT_EQ(table.rows.front().at("LeftHand_x_cm"), "");
    EXPECT_EQ(table.rows.front().at("centre_of_mass_z_up_cm"), "") << "feet alone have no weight";
    EXPECT_EQ(table.rows.front().at("LeftHand_contact"), "");
    EXPECT_EQ(table.rows.back().at("actor"), "3");
    EXPECT_EQ(table.rows.back().at("LeftHand_x_cm"), "18");
    EXPECT_EQ(table.rows.back().at("LeftFoot_contact"), "1");
    EXPECT_EQ(table.rows.back().at("LeftHand_contact"), "0");
}

TEST_F(MotionTable, quotesNamesThatNeedIt)
{
    ASSERT_TRUE(m_session.load(0, file("standing.bvh", kStanding), "Ann, \"the\" one"));
    ASSERT_EQ(write("table.csv"), "");
    std::ifstream stream(m_folder / "table.csv");
    std::string line;
    std::getline(stream, line);
    std::getline(stream, line);
    EXPECT_THAT(line, testing::StartsWith("0,\"Ann, \"\"the\"\" one\",0,0,"));
}

TEST_F(MotionTable, isTheSameUnderALocaleWithADecimalComma)
{
    ASSERT_TRUE(m_session.load(0, file("planted.bvh", plantedFoot()), "Ann"));
    setenv("LOCPATH", KivTestSupport::kLocales, 1);
    if (!std::setlocale(LC_ALL, "de_DE.UTF-8"))
        GTEST_SKIP() << "the build found no localedef, or no de_DE to make a locale from";
    std::locale::global(std::locale("de_DE.UTF-8"));
    const Table table = written();
    std::locale::global(std::locale::classic());
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
    EXPECT_EQ(table.rows.at(30).at("time_s"), "0.3");
    EXPECT_NEAR(table.number(1, "LeftFoot_z_up_cm"), leftFootAt(1).height, 1e-3);
}

}  // namespace
