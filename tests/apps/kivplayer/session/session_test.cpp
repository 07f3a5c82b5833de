#include "apps/kivplayer/session/session.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "KivMemoryShare/actorframemanager.h"
#include "apps/kivplayer/session/framepublisher.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"

namespace {

using KivPlayer::FramePublisher;
using KivPlayer::Session;
using testing::HasSubstr;

class SessionOnTheSamples : public PlayerFixture
{
protected:
    static double playbackDuration()
    {
        return KivMemoryShare::SceneCfgShare::instance()->getBaseAnimationManager()->duration();
    }
};

const char* const kBroken =
    "HIERARCHY\nROOT Hips\n{\n  OFFSET 0 0 0\n  CHANNELS 3 Xrotation Yrotation Wrotation\n}\n";

TEST_F(SessionOnTheSamples, saysWhichContentIsMissing)
{
    Session session(m_console);
    EXPECT_FALSE(session.start(m_folder.string()));
    EXPECT_THAT(m_said.str(), HasSubstr("Data/IVE/avatar.ive: error:"));
    EXPECT_THAT(m_said.str(), HasSubstr("Data/Font/arial.ttf: error:"));
}

TEST_F(SessionOnTheSamples, refusesAFileThatIsNotThereOrAFolder)
{
    Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    EXPECT_FALSE(session.load(0, (m_folder / "nobody.bvh").string(), "A"));
    EXPECT_THAT(m_said.str(), HasSubstr("nobody.bvh: error: no such file"));
    EXPECT_FALSE(session.load(0, m_folder.string(), "A"));
    EXPECT_THAT(m_said.str(), HasSubstr("is a folder"));
    EXPECT_EQ(actorsInTheScene(), 0u);
}

TEST_F(SessionOnTheSamples, namesTheLineOfABrokenProfileTableOnceAndLoadsNothing)
{
    const std::string table = file("own.profile", "# mine\ndialect mine\nwen Hips\n");
    Session session(m_console, "profile=\"" + table + "\"");
    EXPECT_FALSE(session.start(KivTestSupport::kRuntimeRoot));
    EXPECT_FALSE(session.load(0, sample("walk"), "A"));
    EXPECT_FALSE(session.load(1, sample("wave"), "B"));
    EXPECT_THAT(m_said.str(), HasSubstr("own.profile:3: error: "));
    EXPECT_EQ(m_console.errors().size(), 1u);
    EXPECT_EQ(actorsInTheScene(), 0u);
}

TEST_F(SessionOnTheSamples, saysThatAProfileTableIsNotThere)
{
    const std::string table = (m_folder / "nobodys.profile").string();
    Session session(m_console, "profile=\"" + table + "\"");
    EXPECT_FALSE(session.start(KivTestSupport::kRuntimeRoot));
    EXPECT_THAT(m_said.str(), HasSubstr("nobodys.profile"));
}

TEST_F(SessionOnTheSamples, dressesAForeignSkeletonByATableOfItsOwners)
{
    std::string text = KivTestSupport::readWholeFile(sample("walk"));
    for (const char* name : {"LeftUpLeg", "RightUpLeg"})
        for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name))
            text.replace(at, std::string(name).size(), name[0] == 'L' ? "Ham_A" : "Ham_B");
    const std::string foreign = file("foreign.bvh", text);
    const std::string table =
        file("own.profile", "dialect butcher\nwhen Ham_A\nname Ham_{A,B} = {Left,Right}UpLeg\n");
    {
        Session session(m_console);
        ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
        ASSERT_TRUE(session.load(0, foreign, "A")) << m_said.str();
        EXPECT_EQ(session.actors().at(0).profile.dialect, "")
            << "no table knows it; what the joints are for does";
    }
    Session session(m_console, "profile=\"" + table + "\"");
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    ASSERT_TRUE(session.load(0, foreign, "A")) << m_said.str();
    EXPECT_EQ(session.actors().at(0).profile.dialect, "butcher");
    EXPECT_EQ(session.actors().at(0).profile.renamed.size(), 2u);
    EXPECT_THAT(session.actors().at(0).dressed.jointNames(), testing::Contains("LeftUpLeg"));
}

TEST_F(SessionOnTheSamples, namesLineAndColumnOfABrokenFile)
{
    Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    EXPECT_FALSE(session.load(0, file("broken.bvh", kBroken), "A"));
    EXPECT_THAT(m_said.str(), HasSubstr("broken.bvh:5:"));
    EXPECT_THAT(m_said.str(), HasSubstr("Wrotation"));
}

TEST_F(SessionOnTheSamples, keepsAGoodActorWhenItsReplacementIsBroken)
{
    Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    ASSERT_TRUE(session.load(0, sample("walk"), "Walker")) << m_said.str();
    EXPECT_FALSE(session.load(0, file("broken.bvh", kBroken), "B"));
    ASSERT_EQ(session.actors().size(), 1u);
    EXPECT_EQ(session.actors().at(0).name, "Walker");
    EXPECT_EQ(actorsInTheScene(), 1u);
}

TEST_F(SessionOnTheSamples, replacesAnActorOfTheSameIndex)
{
    Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    ASSERT_TRUE(session.load(3, sample("walk"), "Walker"));
    ASSERT_TRUE(session.load(3, sample("wave"), "Waver"));
    EXPECT_EQ(actorsInTheScene(), 1u);
    EXPECT_EQ(session.actors().at(3).file, sample("wave"));
}

TEST_F(SessionOnTheSamples, dressesRenamesAndRemovesActors)
{
    Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    ASSERT_TRUE(session.load(0, sample("pass_left"), "Left"));
    ASSERT_TRUE(session.load(1, sample("pass_right"), "Right"));
    EXPECT_GT(session.actors().at(1).dressed.pieces().size(), 50u);
    EXPECT_NE(session.actors().at(1).dressed.labelSwitch(), nullptr);
    EXPECT_TRUE(session.rename(1, "Someone"));
    EXPECT_EQ(session.actors().at(1).name, "Someone");
    EXPECT_FALSE(session.rename(7, "Nobody"));
    EXPECT_TRUE(session.remove(0));
    EXPECT_EQ(actorsInTheScene(), 1u);
    EXPECT_EQ(session.actors().size(), 1u);
}

TEST_F(SessionOnTheSamples, refusesAnOffsetThatIsNoTimeOrBeyondADay)
{
    Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    ASSERT_TRUE(session.load(0, sample("walk"), "Walker"));
    ASSERT_TRUE(session.setOffset(0, 1.5));
    for (const double wrong : {std::nan(""), HUGE_VAL, -HUGE_VAL, 86400.5, -1e300})
        EXPECT_FALSE(session.setOffset(0, wrong)) << wrong;
    EXPECT_EQ(session.actors().at(0).offset, 1.5);
    EXPECT_EQ(playbackDuration(), session.actors().at(0).duration() + 1.5);
}

TEST_F(SessionOnTheSamples, keepsAnOffsetWhenTheActorIsReplacedAndForgetsItWhenItIsRemoved)
{
    Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    ASSERT_TRUE(session.setOffset(2, 1.5)) << "before there is an actor";
    ASSERT_TRUE(session.load(2, sample("walk"), "Walker"));
    EXPECT_EQ(session.actors().at(2).offset, 1.5);
    EXPECT_EQ(playbackDuration(), session.actors().at(2).end());
    ASSERT_TRUE(session.load(2, sample("wave"), "Waver"));
    EXPECT_EQ(session.actors().at(2).offset, 1.5);
    EXPECT_EQ(playbackDuration(), session.actors().at(2).duration() + 1.5);
    EXPECT_FALSE(session.load(2, file("broken.bvh", kBroken), "B"));
    EXPECT_EQ(session.actors().at(2).offset, 1.5);
    EXPECT_TRUE(session.remove(2));
    ASSERT_TRUE(session.load(2, sample("walk"), "Walker"));
    EXPECT_EQ(session.actors().at(2).offset, 0.0);
    EXPECT_EQ(playbackDuration(), session.actors().at(2).duration());
}

TEST_F(SessionOnTheSamples, keepsTheOffsetOfAnActorThatPlaysBeforeItIsTakenIn)
{
    Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    ASSERT_TRUE(session.setOffset(0, 1.5));
    auto motion = session.read(0, sample("walk"), "Walker");
    ASSERT_TRUE(motion);
    const bool built = session.build(*motion).get();
    session.keepOffsets();
    EXPECT_EQ(playbackDuration(), motion->actor.duration() + 1.5);
    EXPECT_TRUE(session.finish(std::move(*motion), built));
}

TEST_F(SessionOnTheSamples, leavesNothingBehindAndStartsAgain)
{
    for (int run = 0; run < 2; ++run) {
        {
            Session session(m_console);
            ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
            ASSERT_TRUE(session.load(0, sample("walk"), "Walker"));
            EXPECT_EQ(actorsInTheScene(), 1u);
        }
        EXPECT_EQ(actorsInTheScene(), 0u);
    }
}

TEST_F(SessionOnTheSamples, publishesWhatBelongsToTheTimeAlone)
{
    Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    ASSERT_TRUE(session.load(0, sample("walk"), "Walker"));
    auto* store = KivMemoryShare::ActorFrameManager::Ins();
    const auto published = [store] {
        float gravity[10] = {};
        KivCommonDef::KIV_STICKCONTACT contacts[100] = {};
        float* gravityAt = gravity;
        KivCommonDef::KIV_STICKCONTACT* contactsAt = contacts;
        int tag = 0;
        unsigned long long count = 0;
        EXPECT_TRUE(store->ReadActorGravity(0, &gravityAt, tag, count));
        std::vector<float> all(gravity, gravity + 3);
        EXPECT_TRUE(store->ReadActorStickContact(0, &contactsAt, tag, count));
        for (unsigned long long i = 0; i < count; ++i) {
            const auto& contact = contacts[i];
            all.insert(all.end(), {contact.x, contact.y, contact.z, static_cast<float>(contact.contact)});
        }
        return all;
    };
    FramePublisher stepwise(true);
    stepwise.setActors(session.actors());
    for (double time = 0.0; time < 0.9; time += 1.0 / 30.0)
        stepwise.show(time);
    stepwise.show(0.9);
    const std::vector<float> followed = published();
    EXPECT_GT(followed[1], 80.0f) << "a walker's centre of mass, centimetres above the ground";
    EXPECT_GE(followed.size(), 3u + 4u * 4u) << "feet and hands";

    FramePublisher jumping(true);
    jumping.setActors(session.actors());
    jumping.show(0.1);
    jumping.show(0.9);
    EXPECT_EQ(published(), followed);
}

TEST_F(SessionOnTheSamples, findsThatAWalkerTouchesTheGroundWithOneFootAfterTheOther)
{
    Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    ASSERT_TRUE(session.load(0, sample("walk"), "Walker"));
    FramePublisher publisher(true);
    publisher.setActors(session.actors());
    bool touched[2] = {};
    bool lifted[2] = {};
    const std::vector<std::string> joints = session.actors().at(0).dressed.jointNames();
    for (double time = 0.0; time < publisher.duration(); time += 1.0 / 30.0) {
        publisher.show(time);
        KivCommonDef::KIV_STICKCONTACT contacts[100] = {};
        KivCommonDef::KIV_STICKCONTACT* at = contacts;
        int tag = 0;
        unsigned long long count = 0;
        ASSERT_TRUE(KivMemoryShare::ActorFrameManager::Ins()->ReadActorStickContact(0, &at, tag, count));
        const std::vector<osg::Vec3d> places = session.actors().at(0).dressed.positions();
        for (unsigned long long i = 0; i < count; ++i) {
            for (int side = 0; side < 2; ++side) {
                const std::string name = side == 0 ? "LeftFoot" : "RightFoot";
                const auto joint = std::find(joints.begin(), joints.end(), name) - joints.begin();
                const osg::Vec3d place = places[static_cast<std::size_t>(joint)];
                if (std::abs(contacts[i].x - 0.01 * place.x()) < 1e-4 &&
                    std::abs(contacts[i].y - 0.01 * place.z()) < 1e-4 &&
                    std::abs(contacts[i].z + 0.01 * place.y()) < 1e-4)
                    (contacts[i].contact ? touched : lifted)[side] = true;
            }
        }
    }
    EXPECT_TRUE(touched[0] && touched[1]);
    EXPECT_TRUE(lifted[0] && lifted[1]);
}

}  // namespace
