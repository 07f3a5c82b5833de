#include "KivMemoryShare/actorframemanager.h"

#include <gmock/gmock.h>

#include <thread>
#include <vector>

namespace {

using KivCommonDef::KIV_STICKCONTACT;
using KivMemoryShare::ActorFrameManager;
using testing::Each;

constexpr float kUntouched = -7.0f;

class ActorFrames : public testing::Test
{
protected:
    void SetUp() override { m_frames.Clear(); }
    void TearDown() override { m_frames.Clear(); }

    bool readGravity(unsigned actor)
    {
        float* buffer = m_gravity.data();
        return m_frames.ReadActorGravity(actor, &buffer, m_tag, m_count);
    }

    bool readContacts(unsigned actor)
    {
        KIV_STICKCONTACT* buffer = m_contacts.data();
        return m_frames.ReadActorStickContact(actor, &buffer, m_tag, m_count);
    }

    void writeGravity(unsigned actor, const std::vector<float>& values)
    {
        m_frames.WriteActorGravity(actor, values.data(), values.size());
    }

    ActorFrameManager& m_frames = *ActorFrameManager::Ins();
    std::vector<float> m_gravity = std::vector<float>(20, kUntouched);
    std::vector<KIV_STICKCONTACT> m_contacts =
        std::vector<KIV_STICKCONTACT>(200, KIV_STICKCONTACT{kUntouched, 0, 0, 0, {}});
    int m_tag = -1;
    unsigned long long m_count = 99;
};

TEST_F(ActorFrames, failForAnActorThatWasNeverWrittenAndTouchNothing)
{
    EXPECT_FALSE(readGravity(3));
    EXPECT_FALSE(readContacts(3));
    EXPECT_EQ(m_tag, -1);
    EXPECT_EQ(m_count, 99u);
    EXPECT_THAT(m_gravity, Each(kUntouched));
}

TEST_F(ActorFrames, failWithoutABuffer)
{
    writeGravity(1, {1, 2, 3});
    float* none = nullptr;
    EXPECT_FALSE(m_frames.ReadActorGravity(1, &none, m_tag, m_count));
    EXPECT_FALSE(m_frames.ReadActorGravity(1, nullptr, m_tag, m_count));
}

TEST_F(ActorFrames, neverReportMoreFloatsThanTheyCopied)
{
    writeGravity(1, std::vector<float>(15, 4.0f));
    ASSERT_TRUE(readGravity(1));
    EXPECT_EQ(m_count, 10u);
    EXPECT_EQ(m_gravity[9], 4.0f);
    EXPECT_EQ(m_gravity[10], kUntouched);
}

TEST_F(ActorFrames, neverReportMoreContactsThanTheyCopied)
{
    const std::vector<KIV_STICKCONTACT> many(150, KIV_STICKCONTACT{1, 2, 3, 1, {}});
    m_frames.WriteActorStickContact(1, many.data(), many.size());
    ASSERT_TRUE(readContacts(1));
    EXPECT_EQ(m_count, 100u);
    EXPECT_EQ(m_contacts[99].x, 1.0f);
    EXPECT_EQ(m_contacts[100].x, kUntouched);
}

TEST_F(ActorFrames, takeNullDataForZeroValues)
{
    m_frames.WriteActorGravity(1, nullptr, 3);
    m_frames.WriteActorStickContact(1, nullptr, 3);
    ASSERT_TRUE(readGravity(1));
    EXPECT_EQ(m_count, 0u);
    ASSERT_TRUE(readContacts(1));
    EXPECT_EQ(m_count, 0u);
}

TEST_F(ActorFrames, readZeroContactsSuccessfully)
{
    const KIV_STICKCONTACT one{1, 2, 3, 1, {}};
    m_frames.WriteActorStickContact(1, &one, 1);
    m_frames.WriteActorStickContact(1, &one, 0);
    ASSERT_TRUE(readContacts(1));
    EXPECT_EQ(m_count, 0u);
    EXPECT_EQ(m_contacts[0].x, kUntouched);
}

TEST_F(ActorFrames, keepGravityAndContactsApart)
{
    writeGravity(1, {1, 2, 3});
    EXPECT_FALSE(readContacts(1));
    const KIV_STICKCONTACT one{1, 2, 3, 1, {}};
    m_frames.WriteActorStickContact(2, &one, 1);
    EXPECT_FALSE(readGravity(2));
}

TEST_F(ActorFrames, giveEachActorItsOwn)
{
    writeGravity(1, {1, 2, 3});
    writeGravity(2, {4, 5, 6});
    ASSERT_TRUE(readGravity(1));
    EXPECT_EQ(m_gravity[0], 1.0f);
    ASSERT_TRUE(readGravity(2));
    EXPECT_EQ(m_gravity[2], 6.0f);
    EXPECT_EQ(m_count, 3u);
}

TEST_F(ActorFrames, countTheWritesInTheTag)
{
    writeGravity(1, {1, 2, 3});
    ASSERT_TRUE(readGravity(1));
    EXPECT_EQ(m_tag, 1);
    writeGravity(1, {1, 2, 3});
    ASSERT_TRUE(readGravity(1));
    EXPECT_EQ(m_tag, 2);
}

TEST_F(ActorFrames, forgetARemovedActorAlone)
{
    writeGravity(1, {1, 2, 3});
    writeGravity(2, {1, 2, 3});
    m_frames.RemoveActor(1);
    EXPECT_FALSE(readGravity(1));
    EXPECT_TRUE(readGravity(2));
    m_frames.Clear();
    EXPECT_FALSE(readGravity(2));
}

TEST_F(ActorFrames, areReadWholeWhileAnotherThreadWrites)
{
    writeGravity(1, {0, 0, 0});
    std::thread writer([this] {
        for (int i = 0; i < 5000; ++i) {
            const float value = static_cast<float>(i);
            writeGravity(1, {value, value, value});
        }
    });
    for (int i = 0; i < 5000; ++i) {
        ASSERT_TRUE(readGravity(1));
        ASSERT_EQ(m_gravity[0], m_gravity[2]);
    }
    writer.join();
}

}  // namespace
