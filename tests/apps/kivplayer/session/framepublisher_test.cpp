#include "apps/kivplayer/session/framepublisher.h"

#include <gmock/gmock.h>

#include <array>

#include "KivMemoryShare/actorframemanager.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"

namespace {

using KivMemoryShare::ActorFrameManager;
using KivPlayer::FramePublisher;

class FramePublisherTest : public PlayerFixture
{
protected:
    void SetUp() override
    {
        PlayerFixture::SetUp();
        ASSERT_TRUE(m_session.start(KivTestSupport::kRuntimeRoot));
        ASSERT_TRUE(m_session.load(0, sample("walk"), "Ann"));
    }

    static osg::BoundingBox boxOf(const std::vector<osg::Vec3d>& places)
    {
        osg::BoundingBox box;
        for (const osg::Vec3d& place : places)
            box.expandBy(place);
        return box;
    }

    /// One letter for every contact point: whether it touches.
    static std::string contacts()
    {
        std::array<KivCommonDef::KIV_STICKCONTACT, ActorFrameManager::kStickContacts> records{};
        KivCommonDef::KIV_STICKCONTACT* all = records.data();
        int tag = 0;
        unsigned long long count = 0;
        std::string text;
        if (ActorFrameManager::Ins()->ReadActorStickContact(0, &all, tag, count))
            for (std::size_t i = 0; i < count; ++i)
                text += records[i].contact ? '1' : '0';
        return text;
    }

    KivPlayer::Session m_session{m_console};
};

TEST_F(FramePublisherTest, samplesThePartThatIsShown)
{
    FramePublisher publisher(false);
    publisher.setActors(m_session.actors());
    const osg::BoundingBox whole = boxOf(publisher.sampledPositions());
    publisher.setActors(m_session.actors(), std::make_pair(1.0, 2.0));
    const osg::BoundingBox part = boxOf(publisher.sampledPositions());
    EXPECT_LT(part.yMax() - part.yMin(), 0.5f * (whole.yMax() - whole.yMin()));
    EXPECT_EQ(publisher.sampledPositions().size(), 96 * m_session.actors().at(0).dressed.joints().size());
}

TEST_F(FramePublisherTest, holdsAPartThatLiesBehindTheEndToTheLastFrame)
{
    FramePublisher publisher(false);
    publisher.setActors(m_session.actors(), std::make_pair(100.0, 200.0));
    publisher.show(publisher.duration());
    EXPECT_EQ(publisher.sampledPositions().size(), publisher.positionsNow().size());
    EXPECT_LT(
        (boxOf(publisher.sampledPositions()).center() - boxOf(publisher.positionsNow()).center()).length(),
        1e-3f);
}

TEST_F(FramePublisherTest, judgesContactsTheSameWhateverPartIsShown)
{
    FramePublisher all(true);
    all.setActors(m_session.actors());
    std::string expected;
    for (double time = 1.0; time < 2.0; time += 0.05) {
        all.show(time);
        expected += contacts() + " ";
    }
    EXPECT_THAT(expected, testing::AllOf(testing::HasSubstr("1"), testing::HasSubstr("0")));
    FramePublisher part(true);
    part.setActors(m_session.actors(), std::make_pair(1.0, 2.0));
    std::string found;
    for (double time = 1.0; time < 2.0; time += 0.05) {
        part.show(time);
        found += contacts() + " ";
    }
    EXPECT_EQ(found, expected);
}

TEST_F(FramePublisherTest, showsAnActorThatStartsLaterAsItWasThenAndHeldBeforeAndBehind)
{
    FramePublisher publisher(true);
    publisher.setActors(m_session.actors());
    const auto showing = [&](double time) {
        publisher.show(time);
        return std::make_pair(publisher.positionsNow(), contacts());
    };
    const double end = publisher.duration();
    const auto first = showing(0.0);
    const auto middle = showing(2.0);
    const auto last = showing(end);
    ASSERT_NE(first, middle);
    ASSERT_TRUE(m_session.setOffset(0, 1.25));
    publisher.setActors(m_session.actors());
    EXPECT_EQ(publisher.duration(), end + 1.25);
    EXPECT_EQ(showing(3.25), middle);
    EXPECT_EQ(showing(1.25), first);
    EXPECT_EQ(showing(0.6), first) << "before it starts";
    EXPECT_EQ(showing(end + 1.25), last);
    ASSERT_TRUE(m_session.setOffset(0, -1.25));
    publisher.setActors(m_session.actors());
    EXPECT_EQ(publisher.duration(), end - 1.25);
    EXPECT_EQ(showing(0.75), middle);
    EXPECT_EQ(showing(end).first, last.first) << "behind its end";
}

TEST_F(FramePublisherTest, judgesContactsOfAnActorTheSameWhenItStartsBetweenTheOthersFrames)
{
    ASSERT_TRUE(m_session.load(1, sample("juggle"), "Bob"));
    FramePublisher publisher(true);
    publisher.setActors(m_session.actors());
    const auto following = [&](double offset) {
        std::string all;
        for (double time = 1.0; time < 2.5; time += 0.02) {
            publisher.show(offset + time);
            all += contacts() + " ";
        }
        return all;
    };
    const std::string expected = following(0.0);
    ASSERT_TRUE(m_session.setOffset(0, 0.7042));
    publisher.setActors(m_session.actors());
    EXPECT_EQ(following(0.7042), expected);
}

TEST_F(FramePublisherTest, samplesOfAnActorThatStartsLaterWhatThePartShows)
{
    FramePublisher publisher(false);
    publisher.setActors(m_session.actors(), std::make_pair(1.0, 2.0));
    const std::vector<osg::Vec3d> expected = publisher.sampledPositions();
    ASSERT_TRUE(m_session.setOffset(0, 0.5));
    publisher.setActors(m_session.actors(), std::make_pair(1.5, 2.5));
    EXPECT_EQ(publisher.sampledPositions(), expected);
    publisher.setActors(m_session.actors(), std::make_pair(0.0, 0.4));
    EXPECT_EQ(publisher.sampledPositions().size(), m_session.actors().at(0).dressed.joints().size())
        << "it stands still";
}

}  // namespace
