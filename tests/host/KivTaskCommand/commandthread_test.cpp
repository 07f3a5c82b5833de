#include "KivTaskCommand/commandthread.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>
#include <vector>

#include "tests/host/KivTaskCommand/recordingdelegate.h"

namespace {

using namespace std::chrono_literals;
using KivTaskCommand::CommandThread;
using KivTaskCommand::SceneGate;
using KivTaskCommand::TaskCommand;
using KivTaskCommandTest::RecordingDelegate;

struct Prepared
{
    std::unique_ptr<TaskCommand> command;
    RecordingDelegate* work;
};

Prepared commandWriting(std::string& record)
{
    Prepared prepared{std::make_unique<TaskCommand>(), new RecordingDelegate(record)};
    prepared.command->setCmdExcImp(prepared.work);
    return prepared;
}

/// A frame loop that does nothing but own the scene for a while, again and again.
class FakeFrameLoop
{
public:
    explicit FakeFrameLoop(SceneGate& gate) : m_thread([this, &gate] { loop(gate); }) {}
    ~FakeFrameLoop()
    {
        m_done = true;
        m_thread.join();
    }

    std::atomic<bool> drawing{false};
    std::atomic<int> frames{0};

private:
    void loop(SceneGate& gate)
    {
        while (!m_done) {
            gate.close();
            drawing = true;
            std::this_thread::sleep_for(1ms);
            drawing = false;
            ++frames;
            gate.open();
        }
    }

    std::atomic<bool> m_done{false};
    std::thread m_thread;
};

TEST(CommandThreadTest, answersFalseAtOnceForNoCommand)
{
    SceneGate gate;
    CommandThread thread(gate);
    EXPECT_FALSE(thread.submit(nullptr).get());
    EXPECT_FALSE(thread.submit(std::make_unique<TaskCommand>()).get());
}

TEST(CommandThreadTest, handsAnExceptionOverAfterFinishing)
{
    SceneGate gate;
    CommandThread thread(gate);
    std::string record;
    Prepared prepared = commandWriting(record);
    prepared.work->onPrepare = []() -> bool { throw std::runtime_error("broken"); };
    std::future<bool> answer = thread.submit(std::move(prepared.command));
    EXPECT_THROW(answer.get(), std::runtime_error);
    EXPECT_EQ(record, "pef~");
}

TEST(CommandThreadTest, leavesTheGateWhenExecutingThrows)
{
    SceneGate gate;
    CommandThread thread(gate);
    std::string record;
    Prepared prepared = commandWriting(record);
    prepared.work->onExecute = []() -> bool { throw std::runtime_error("broken"); };
    EXPECT_THROW(thread.submit(std::move(prepared.command)).get(), std::runtime_error);
    gate.close();
    gate.open();
    EXPECT_EQ(record, "pef~");
}

TEST(CommandThreadTest, destroysTheCommandOnItsOwnThreadBeforeTheFutureIsReady)
{
    SceneGate gate;
    CommandThread thread(gate);
    std::string record;
    Prepared prepared = commandWriting(record);
    std::thread::id worker;
    prepared.work->onFinish = [&worker] {
        worker = std::this_thread::get_id();
        return false;
    };
    EXPECT_FALSE(thread.submit(std::move(prepared.command)).get());
    EXPECT_EQ(record, "pef~");
    EXPECT_NE(worker, std::this_thread::get_id());
    EXPECT_FALSE(thread.busy());
}

TEST(CommandThreadTest, holdsTheGateDuringExecuteAlone)
{
    SceneGate gate;
    gate.close();
    CommandThread thread(gate);
    std::string record;
    std::promise<void> prepared;
    Prepared job = commandWriting(record);
    job.work->onPrepare = [&prepared] {
        prepared.set_value();
        return true;
    };
    std::future<bool> answer = thread.submit(std::move(job.command));
    prepared.get_future().get();
    EXPECT_EQ(answer.wait_for(20ms), std::future_status::timeout);
    EXPECT_TRUE(thread.busy());
    gate.open();
    EXPECT_TRUE(answer.get());
    EXPECT_EQ(record, "pef~");
}

TEST(CommandThreadTest, finishesWhileTheGateIsClosed)
{
    SceneGate gate;
    CommandThread thread(gate);
    std::string record;
    Prepared prepared = commandWriting(record);
    std::promise<void> finishing;
    std::promise<void> closed;
    prepared.work->onFinish = [&finishing, &closed] {
        finishing.set_value();
        closed.get_future().wait();
        return true;
    };
    std::future<bool> answer = thread.submit(std::move(prepared.command));
    finishing.get_future().wait();
    gate.close();
    closed.set_value();
    EXPECT_TRUE(answer.get());
}

TEST(CommandThreadTest, runsCommandsOneAfterTheOtherInOrder)
{
    SceneGate gate;
    CommandThread thread(gate);
    std::string record;  // deliberately unsynchronised: one command at a time may touch it
    std::vector<std::future<bool>> answers;
    std::string expected;
    for (int i = 0; i < 50; ++i) {
        answers.push_back(thread.submit(commandWriting(record).command));
        expected += "pef~";
    }
    for (std::future<bool>& answer : answers) {
        EXPECT_TRUE(answer.get());
    }
    EXPECT_EQ(record, expected);
}

TEST(CommandThreadTest, runsWhatWasSubmittedBeforeItEnds)
{
    SceneGate gate;
    std::string record;
    std::vector<std::future<bool>> answers;
    {
        CommandThread thread(gate);
        for (int i = 0; i < 10; ++i) {
            answers.push_back(thread.submit(commandWriting(record).command));
        }
    }
    for (std::future<bool>& answer : answers) {
        ASSERT_EQ(answer.wait_for(0s), std::future_status::ready);
        EXPECT_TRUE(answer.get());
    }
    EXPECT_EQ(record.size(), 40u);
}

TEST(CommandThreadTest, neverChangesTheSceneWhileAFrameIsDrawn)
{
    SceneGate gate;
    FakeFrameLoop loop(gate);
    CommandThread thread(gate);
    std::vector<std::string> records(60);
    std::vector<std::future<bool>> answers;
    for (std::string& record : records) {
        Prepared prepared = commandWriting(record);
        prepared.work->onExecute = [&loop] {
            const bool drawingBefore = loop.drawing;
            std::this_thread::sleep_for(200us);
            return !drawingBefore && !loop.drawing;
        };
        answers.push_back(thread.submit(std::move(prepared.command)));
    }
    for (std::future<bool>& answer : answers) {
        EXPECT_TRUE(answer.get());
    }
    EXPECT_GT(loop.frames, 0);
}

TEST(CommandThreadTest, takesCommandsFromSeveralThreads)
{
    SceneGate gate;
    FakeFrameLoop loop(gate);
    CommandThread thread(gate);
    std::string record;
    std::vector<std::thread> submitters;
    for (int t = 0; t < 3; ++t) {
        submitters.emplace_back([&] {
            for (int i = 0; i < 10; ++i) {
                EXPECT_TRUE(thread.submit(commandWriting(record).command).get());
            }
        });
    }
    for (std::thread& submitter : submitters) {
        submitter.join();
    }
    EXPECT_EQ(record.size(), 120u);
}

}  // namespace
