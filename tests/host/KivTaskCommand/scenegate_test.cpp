#include "KivTaskCommand/scenegate.h"

#include <gmock/gmock.h>

#include <atomic>
#include <future>
#include <mutex>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using KivTaskCommand::SceneGate;
using testing::ElementsAre;

/// Entrants that note the order in which they passed.
class Entrants
{
public:
    explicit Entrants(SceneGate& gate) : m_gate(gate) {}
    ~Entrants() { join(); }

    /// Starts one more and returns once it waits at the closed gate.
    void queue(int name, std::chrono::milliseconds stay = 0ms)
    {
        const std::size_t before = m_gate.waiting();
        m_threads.emplace_back([this, name, stay] {
            const SceneGate::Pass pass(m_gate);
            std::this_thread::sleep_for(stay);
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_passed.push_back(name);
        });
        while (m_gate.waiting() == before) {
            std::this_thread::yield();
        }
    }

    void join()
    {
        for (std::thread& thread : m_threads) {
            thread.join();
        }
        m_threads.clear();
    }

    std::vector<int> passed() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_passed;
    }

private:
    SceneGate& m_gate;
    mutable std::mutex m_mutex;
    std::vector<int> m_passed;
    std::vector<std::thread> m_threads;
};

TEST(Gate, standsOpenAtFirst)
{
    SceneGate gate;
    gate.enter();
    gate.leave();
    const SceneGate::Pass pass(gate);
    EXPECT_EQ(gate.waiting(), 0u);
}

TEST(Gate, closesAtOnceWhenNobodyIsThere)
{
    SceneGate gate;
    gate.close();
    gate.open();
    gate.close();
    EXPECT_EQ(gate.waiting(), 0u);
}

TEST(Gate, keepsEntrantsOutWhileItIsClosed)
{
    SceneGate gate;
    gate.close();
    Entrants entrants(gate);
    entrants.queue(1);
    std::this_thread::sleep_for(20ms);
    EXPECT_THAT(entrants.passed(), ElementsAre());
    EXPECT_EQ(gate.waiting(), 1u);
    gate.open();
    entrants.join();
    EXPECT_THAT(entrants.passed(), ElementsAre(1));
}

TEST(Gate, letsEntrantsPassInTheOrderInWhichTheyCame)
{
    SceneGate gate;
    for (int round = 0; round < 40; ++round) {
        gate.close();
        Entrants entrants(gate);
        for (int i = 0; i < 8; ++i) {
            entrants.queue(i);
        }
        gate.open();
        entrants.join();
        ASSERT_THAT(entrants.passed(), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7)) << "round " << round;
    }
}

TEST(Gate, letsOneThroughEvenWhenItIsOpenedForNoTimeAtAll)
{
    SceneGate gate;
    gate.close();
    Entrants entrants(gate);
    for (int i = 0; i < 3; ++i) {
        entrants.queue(i, 5ms);
    }
    for (std::size_t frames = 1; frames <= 3; ++frames) {
        gate.close(0us);
        EXPECT_EQ(gate.waiting(), 3 - frames);
    }
    entrants.join();
    EXPECT_THAT(entrants.passed(), ElementsAre(0, 1, 2));
}

TEST(Gate, servesAllThatWaitWhenTheBudgetIsLong)
{
    SceneGate gate;
    gate.close();
    Entrants entrants(gate);
    for (int i = 0; i < 5; ++i) {
        entrants.queue(i);
    }
    gate.close(10s);
    EXPECT_EQ(gate.waiting(), 0u);
    entrants.join();
    EXPECT_THAT(entrants.passed(), ElementsAre(0, 1, 2, 3, 4));
}

TEST(Gate, waitsForTheOneInside)
{
    SceneGate gate;
    gate.enter();
    auto closing = std::async(std::launch::async, [&gate] { gate.close(0us); });
    EXPECT_EQ(closing.wait_for(20ms), std::future_status::timeout);
    gate.leave();
    closing.get();
}

TEST(Gate, givesTheSceneToOneAtATimeAndNeverToBothSides)
{
    SceneGate gate;
    int scene = 0;  // deliberately unsynchronised: only the gate protects it
    std::atomic<int> inside{0};
    std::atomic<bool> done{false};
    std::vector<std::thread> changers;
    for (int t = 0; t < 3; ++t) {
        changers.emplace_back([&] {
            for (int i = 0; i < 200; ++i) {
                const SceneGate::Pass pass(gate);
                EXPECT_EQ(inside.fetch_add(1), 0);
                ++scene;
                inside.fetch_sub(1);
            }
        });
    }
    std::thread frameLoop([&] {
        while (!done) {
            gate.close(100us);
            EXPECT_EQ(inside.fetch_add(1), 0);
            ++scene;
            --scene;
            inside.fetch_sub(1);
            gate.open();
        }
    });
    for (std::thread& changer : changers) {
        changer.join();
    }
    done = true;
    frameLoop.join();
    EXPECT_EQ(scene, 600);
}

}  // namespace
