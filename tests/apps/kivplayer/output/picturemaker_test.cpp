#include "apps/kivplayer/output/picturemaker.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "apps/kivplayer/output/picturefile.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"

namespace {

using KivPlayer::Options;
using KivPlayer::PictureMaker;
using KivPlayer::Session;

/// A tail with two feelers, three hundredths of a unit long, far above the ground. Two of its joints have the
/// names of a person's.
std::string tinyCreature()
{
    const std::string channels = "CHANNELS 3 Xrotation Yrotation Zrotation\n";
    const auto end = [](const std::string& offset) { return "End Site\n{\nOFFSET " + offset + "\n}\n}\n"; };
    return "HIERARCHY\nROOT Hips\n{\nOFFSET 0 5 0\n" + channels + "JOINT Spine\n{\nOFFSET 0 0.02 0\n" +
           channels + "JOINT Left\n{\nOFFSET 0.005 0 0\n" + channels + end("0.005 0.01 0") +
           "JOINT Right\n{\nOFFSET -0.005 0 0\n" + channels + end("-0.005 0.01 0") + "}\n}\n" +
           "MOTION\nFrames: 1\nFrame Time: 0.1\n0 0 0 0 0 0 0 0 0 0 0 0\n";
}

/// Rows of a picture, from the lowest to the highest, in which something coloured like a bone is.
struct Rows
{
    int lowest = -1;
    int highest = -1;
};

Rows bonesIn(const osg::Image& picture)
{
    Rows rows;
    for (int y = 0; y < picture.t(); ++y)
        for (int x = 0; x < picture.s(); ++x) {
            const unsigned char* pixel = picture.data(static_cast<unsigned>(x), static_cast<unsigned>(y));
            const auto [least, most] = std::minmax({pixel[0], pixel[1], pixel[2]});
            if (most - least < 60)
                continue;
            rows.lowest = rows.lowest < 0 ? y : rows.lowest;
            rows.highest = y;
        }
    return rows;
}

class PictureMakerTest : public PlayerFixture
{
protected:
    static constexpr int kSide = 160;

    osg::ref_ptr<osg::Image> still(const std::string& motion, const std::string& reading)
    {
        Session session(m_console, reading);
        EXPECT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
        EXPECT_TRUE(session.load(0, motion, "A")) << m_said.str();
        m_pieces = session.actors().at(0).dressed.pieces().size();
        Options options;
        options.width = options.height = kSide;
        PictureMaker pictures(options, session, m_console);
        return pictures.still();
    }

    std::size_t m_pieces = 0;
};

TEST_F(PictureMakerTest, fillsTheViewWithTheBonesOfWhatIsNoPerson)
{
    const osg::ref_ptr<osg::Image> picture = still(file("creature.bvh", tinyCreature()), "profile=auto");
    EXPECT_EQ(m_pieces, 0U) << "nothing is dressed in fragments";
    const Rows bones = bonesIn(*picture);
    EXPECT_GT(bones.highest - bones.lowest, kSide / 2);
    EXPECT_THAT(m_said.str(), testing::HasSubstr("creature.bvh: warning: not recognised as a person: "));
}

TEST_F(PictureMakerTest, saysInThePictureThatItIsNoPerson)
{
    const std::string creature = file("creature.bvh", tinyCreature());
    const osg::ref_ptr<osg::Image> picture = still(creature, "profile=auto");
    const osg::ref_ptr<osg::Image> person = still(sample("walk"), "profile=auto");
    const auto brightest = [](const osg::Image& image) {
        int value = 0;
        for (int y = image.t() - 24; y < image.t(); ++y)
            for (unsigned x = 0; x < kSide / 4; ++x)
                value = std::max<int>(value, *image.data(x, static_cast<unsigned>(y)));
        return value;
    };
    EXPECT_GT(brightest(*picture), brightest(*person) + 40) << "white letters on the wall";
}

TEST_F(PictureMakerTest, drawsNoBonesOfAPersonUnlessAsked)
{
    const Rows bones = bonesIn(*still(sample("walk"), "profile=auto"));
    EXPECT_GT(m_pieces, 50U);
    EXPECT_EQ(bones.lowest, -1) << "the avatar has no colour that strong";
}

}  // namespace
