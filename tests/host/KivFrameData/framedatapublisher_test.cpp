#include "KivFrameData/framedatapublisher.h"

#include <gmock/gmock.h>

#include <array>
#include <optional>

#include "KivMemoryShare/actorframemanager.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "tests/host/KivFrameData/legs.h"

namespace {

using KivFrameData::FrameDataPublisher;
using KivFrameDataTest::Actor;
using KivFrameDataTest::legsText;
using KivMemoryShare::ActorFrameManager;

KivAnimation::BasicAnimationManager& playback()
{
    return *KivMemoryShare::SceneCfgShare::instance()->getBaseAnimationManager();
}

class FrameDataPublisherTest : public testing::Test
{
protected:
    void SetUp() override { playback().pause(); }

    void TearDown() override
    {
        ActorFrameManager::Ins()->Clear();
        KivMemoryShare::SceneCfgShare::instance()->reset();
    }

    static void play(const Actor& actor)
    {
        playback().registerAnimation(actor.animation);
        playback().playAll();
    }

    static std::optional<osg::Vec3d> centre(unsigned actor)
    {
        std::array<float, ActorFrameManager::kGravityFloats> values{};
        float* buffer = values.data();
        int tag = 0;
        unsigned long long count = 0;
        if (!ActorFrameManager::Ins()->ReadActorGravity(actor, &buffer, tag, count) || count != 3)
            return std::nullopt;
        return osg::Vec3d(values[0], values[1], values[2]);
    }

    /// One letter for the left foot and one for the right: whether it touches; "-" where nothing is
    /// published.
    static std::string contacts(unsigned actor)
    {
        std::array<KivCommonDef::KIV_STICKCONTACT, ActorFrameManager::kStickContacts> records{};
        KivCommonDef::KIV_STICKCONTACT* buffer = records.data();
        int tag = 0;
        unsigned long long count = 0;
        if (!ActorFrameManager::Ins()->ReadActorStickContact(actor, &buffer, tag, count))
            return "-";
        std::string text;
        for (std::size_t i = 0; i < count; ++i)
            text += records[i].contact ? '1' : '0';
        return text;
    }

    FrameDataPublisher m_publisher;
};

TEST_F(FrameDataPublisherTest, publishesNothingWithoutActors)
{
    m_publisher.publish();
    EXPECT_FALSE(centre(0));
    EXPECT_EQ(contacts(0), "-");
}

TEST_F(FrameDataPublisherTest, passesOverAnIdThatIsNoNumber)
{
    const Actor actor("0x");
    play(actor);
    m_publisher.publishAt(0.0);
    EXPECT_EQ(contacts(0), "-");
}

TEST_F(FrameDataPublisherTest, passesOverAnAnimationWithoutSkeleton)
{
    const Actor actor("0");
    actor.root->removeChildren(0, actor.root->getNumChildren());
    play(actor);
    m_publisher.publishAt(0.0);
    EXPECT_EQ(contacts(0), "-");
}

TEST_F(FrameDataPublisherTest, publishesNoCentreOfMassForLegsAlone)
{
    const Actor actor("2", legsText(false));
    play(actor);
    m_publisher.publishAt(0.0);
    EXPECT_FALSE(centre(2));
    EXPECT_EQ(contacts(2), "11");
}

TEST_F(FrameDataPublisherTest, publishesTheCentreOfMassOfTheTimeThatIsShown)
{
    const Actor actor("7");
    play(actor);
    m_publisher.publishAt(0.0);
    ASSERT_TRUE(centre(7));
    EXPECT_NEAR(centre(7)->x(), 0.0, 1e-3);
    EXPECT_GT(centre(7)->y(), 80.0);
    EXPECT_LT(centre(7)->y(), 130.0);
    const double standing = centre(7)->y();
    m_publisher.publishAt(2.0);
    EXPECT_GT(centre(7)->y(), standing + 1.0);
}

TEST_F(FrameDataPublisherTest, tellsAFootThatStandsFromOneThatIsLifted)
{
    const Actor actor("0");
    play(actor);
    m_publisher.publishAt(0.5);
    EXPECT_EQ(contacts(0), "11");
    m_publisher.publishAt(2.0);
    EXPECT_EQ(contacts(0), "01");
}

TEST_F(FrameDataPublisherTest, judgesContactsByTheTimeAlone)
{
    const Actor actor("0");
    play(actor);
    std::vector<std::string> stepped;
    for (int frame = 0; frame <= 20; ++frame) {
        m_publisher.publishAt(0.1 * frame);
        stepped.push_back(contacts(0));
    }
    for (int frame = 20; frame >= 0; --frame) {
        m_publisher.publishAt(0.1 * frame);
        EXPECT_EQ(contacts(0), stepped[static_cast<std::size_t>(frame)]) << "at " << 0.1 * frame << " s";
    }
}

TEST_F(FrameDataPublisherTest, countsAnActorsTimeFromItsStart)
{
    const Actor actor("0");
    actor.animation->setStartTime(1.0);
    play(actor);
    m_publisher.publishAt(2.0);
    EXPECT_EQ(contacts(0), "11");
    m_publisher.publishAt(3.0);
    EXPECT_EQ(contacts(0), "01");
}

TEST_F(FrameDataPublisherTest, leavesTheActorsInThePoseThatIsShown)
{
    const Actor actor("0");
    play(actor);
    m_publisher.publishAt(2.0);
    const osg::Vec3d lifted = *centre(0);
    m_publisher.publishContacts(false);
    m_publisher.publish();
    EXPECT_LT((*centre(0) - lifted).length(), 1e-4);
}

TEST_F(FrameDataPublisherTest, takesContactsOutThatAreNoLongerWanted)
{
    const Actor actor("0");
    play(actor);
    m_publisher.publishAt(0.5);
    m_publisher.publishContacts(false);
    EXPECT_EQ(contacts(0), "");
    m_publisher.publishAt(0.6);
    EXPECT_EQ(contacts(0), "");
    m_publisher.publishContacts(true);
    m_publisher.publishAt(0.6);
    EXPECT_EQ(contacts(0), "11");
}

TEST_F(FrameDataPublisherTest, takesTheDataOfAnActorThatIsGoneOutOfTheStore)
{
    const Actor actor("0");
    const Actor other("1");
    play(actor);
    play(other);
    m_publisher.publishAt(0.0);
    playback().unregisterAnimation(actor.animation);
    m_publisher.publish();
    EXPECT_FALSE(centre(0));
    EXPECT_EQ(contacts(0), "-");
    EXPECT_EQ(contacts(1), "11");
}

TEST_F(FrameDataPublisherTest, goesOnWithTheMotionThatReplacesAnActors)
{
    const Actor before("0");
    play(before);
    m_publisher.publishAt(2.0);
    const Actor after("0", legsText(false));
    playback().unregisterAnimation(before.animation);
    play(after);
    m_publisher.publishAt(0.0);
    EXPECT_EQ(contacts(0), "11");
}

}  // namespace
