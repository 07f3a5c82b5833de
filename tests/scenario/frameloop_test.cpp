#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

#include "KivTaskCommand/commandthread.h"
#include "tests/scenario/hostfixture.h"
#include "tests/support/figures.h"

namespace {

using namespace KivTestSupport;
using KivTaskCommand::CommandThread;
using KivTaskCommand::SceneGate;
using KivTaskCommand::TaskCommand;

/// A frame loop on the test's thread, as a window runs one: the scene is its own between close and open.
class FrameLoop : public ShippedHost
{
protected:
    static std::unique_ptr<TaskCommand> loadCommand(int index, const std::string& bvh)
    {
        auto command = std::make_unique<TaskCommand>();
        manager().createLoadBVHCommand(bvh, index, "Actor " + std::to_string(index), command.get());
        return command;
    }

    void frame()
    {
        gate.close();
        const unsigned int before = scene().getNumChildren();
        updateScene();
        EXPECT_EQ(scene().getNumChildren(), before) << "somebody changed the scene within a frame";
        gate.open();
    }

    bool ready(std::future<bool>& answer)
    {
        return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }

    SceneGate gate;
};

TEST_F(FrameLoop, runsOnWhileActorsLoadAreReplacedAndRemoved)
{
    CommandThread commands(gate);
    std::vector<std::future<bool>> answers;
    for (int index = 0; index < 6; ++index) {
        answers.push_back(commands.submit(loadCommand(index, smallFigureWithPropsBvh())));
        answers.push_back(commands.submit(loadCommand(index, smallFigureBvh())));
    }
    auto removal = std::make_unique<TaskCommand>();
    manager().ClearOrRemoveActor(removal.get(), 1, 2);
    answers.push_back(commands.submit(std::move(removal)));

    int frames = 0;
    for (auto& answer : answers) {
        while (!ready(answer)) {
            frame();
            ++frames;
        }
        EXPECT_TRUE(answer.get());
    }
    frame();
    EXPECT_GT(frames, 0);
    EXPECT_EQ(scene().getNumChildren(), 5u);
    EXPECT_EQ(playback().animationCount(), 5u);
}

TEST_F(FrameLoop, seesAFailedLoadAsAnAnswerAndGoesOn)
{
    CommandThread commands(gate);
    auto answer = commands.submit(loadCommand(1, "no motion"));
    while (!ready(answer)) {
        frame();
    }
    EXPECT_FALSE(answer.get());
    auto next = commands.submit(loadCommand(1, smallFigureBvh()));
    while (!ready(next)) {
        frame();
    }
    EXPECT_TRUE(next.get());
    EXPECT_EQ(scene().getNumChildren(), 1u);
}

TEST_F(FrameLoop, findsTheStateReadyAfterEveryCommand)
{
    CommandThread commands(gate);
    for (const char* text : {"no motion", ""}) {
        auto answer = commands.submit(loadCommand(1, text));
        answer.wait();
        EXPECT_EQ(KivRenderState::KivRenderStateManager::instance()->getCharacterizationState(),
                  KivCharacterizationCommonDef::CharacterizationReady);
    }
}

}  // namespace
