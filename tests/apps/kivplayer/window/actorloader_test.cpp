#include "apps/kivplayer/window/actorloader.h"

#include <algorithm>
#include <thread>
#include <vector>

#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"

namespace {

class ActorLoaderTest : public PlayerFixture
{
protected:
    void SetUp() override
    {
        PlayerFixture::SetUp();
        ASSERT_TRUE(m_session.start(KivTestSupport::kRuntimeRoot));
    }

    /// What it says while it loads, without what repeats the number before.
    std::vector<int> percentsOf(const std::string& file)
    {
        m_loader.load(0, file, "A");
        std::vector<int> percents;
        do {
            m_loader.advance();
            if (percents.empty() || percents.back() != m_loader.percent())
                percents.push_back(m_loader.percent());
            std::this_thread::yield();
        } while (m_loader.isBusy());
        return percents;
    }

    KivPlayer::Session m_session{m_console};
    KivPlayer::ActorLoader m_loader{m_session};
};

TEST_F(ActorLoaderTest, saysOfAFileThatIsRefusedThatItIsNotRead)
{
    const std::vector<int> percents = percentsOf(file("broken.bvh", "HIERARCHY nonsense"));
    EXPECT_EQ(percents, std::vector<int>{0});
    EXPECT_NE(m_loader.takeFailed(), "");
}

TEST_F(ActorLoaderTest, saysHowMuchOfAFileIsReadUpToAllOfItAndBeginsAnewWithTheNext)
{
    for (int run = 0; run < 2; ++run) {
        const std::vector<int> percents = percentsOf(sample("walk"));
        // The first look may come late, though never after the half that the module reads.
        EXPECT_LE(percents.front(), 50);
        EXPECT_EQ(percents.back(), 100);
        EXPECT_TRUE(std::is_sorted(percents.begin(), percents.end()));
        EXPECT_EQ(m_session.actors().size(), 1u);
    }
}

}  // namespace
