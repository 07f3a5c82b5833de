#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <new>

#include "tests/soak/heapuse.h"
#include "tests/soak/soakhost.h"
#include "tests/support/manageraccess.h"

namespace {

/// How many allocations of this thread still succeed; negative: all of them.
thread_local long allocationsLeft = -1;

bool mayAllocate()
{
    if (allocationsLeft < 0) {
        return true;
    }
    if (allocationsLeft == 0) {
        allocationsLeft = -1;  // one failure, as when memory is short for a moment
        return false;
    }
    --allocationsLeft;
    return true;
}

}  // namespace

// Stand for the program's own, in every library that it has loaded. Inlined, the compiler would take malloc
// and delete for a mismatched pair.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
#endif
void* operator new(std::size_t size)
{
    void* memory = mayAllocate() ? std::malloc(size ? size : 1) : nullptr;
    if (!memory) {
        throw std::bad_alloc();
    }
    return memory;
}
void* operator new[](std::size_t size)
{
    return operator new(size);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

using namespace KivTestSupport;

enum class Answer
{
    Succeeded,
    Refused,
    Threw
};

class AllocationFailure : public SoakHost
{
protected:
    /// Runs a step whose allocation of that number fails.
    template <typename Step>
    static Answer runFailing(Step&& step, long number, bool& reached)
    {
        Answer answer = Answer::Threw;
        allocationsLeft = number;
        try {
            answer = step() ? Answer::Succeeded : Answer::Refused;
        } catch (const std::bad_alloc&) {
        }
        reached = allocationsLeft < 0;
        allocationsLeft = -1;
        return answer;
    }
};

TEST_F(AllocationFailure, aLoadThatRunsOutOfMemoryAnywhereLeavesAWorkingHost)
{
    const std::string figure = smallFigureWithPropsBvh();
    int counts[3] = {};
    bool reached = true;
    const bool everyOne = kHeapIsMeasured || std::getenv("KIV_SOAK_ROUNDS");
    const long step = everyOne ? 1 : 13;
    for (long number = 0; reached; number += step) {
        SCOPED_TRACE("allocation " + std::to_string(number));
        const auto command = loading(figure, 1);
        const Answer answer = runFailing([&] { return command->run(); }, number, reached);
        ++counts[static_cast<int>(answer)];
        EXPECT_EQ(scene().getNumChildren(), answer == Answer::Succeeded ? 1u : 0u);
        EXPECT_EQ(playback().animationCount(), answer == Answer::Succeeded ? 1u : 0u);
        EXPECT_EQ(KivRenderState::KivRenderStateManager::instance()->getCharacterizationState(),
                  KivCharacterizationCommonDef::CharacterizationReady);
        EXPECT_TRUE(loading(figure, 1)->run());
        frame([] {});
        EXPECT_TRUE(removing(0, 0)->run());
        ASSERT_EQ(scene().getNumChildren(), 0u);
        ASSERT_EQ(playback().animationCount(), 0u);
    }
    std::cout << counts[0] << " loads succeeded all the same, " << counts[1] << " were refused, " << counts[2]
              << " ended in std::bad_alloc" << std::endl;
    // Only the fitting passes exceptions on.
    EXPECT_GT(counts[static_cast<int>(Answer::Refused)], 20);
    EXPECT_GT(counts[static_cast<int>(Answer::Threw)], 20);
}

TEST_F(AllocationFailure, aSwapThatRunsOutOfMemoryTakesTheActorOutAgain)
{
    const std::string figure = smallFigureBvh();
    int refusals = 0;
    bool reached = true;
    for (long number = 0; reached; ++number) {
        SCOPED_TRACE("allocation " + std::to_string(number));
        KivMemoryShare::SceneCfgShare::instance()->reset();  // a scene that has room for nothing yet
        const auto command = loading(figure, 1);
        ASSERT_TRUE(command->cmdExcImp()->prepare());
        const Answer answer = runFailing([&] { return command->cmdExcImp()->execute(); }, number, reached);
        EXPECT_EQ(answer, reached ? Answer::Refused : Answer::Succeeded);
        EXPECT_EQ(scene().getNumChildren(), reached ? 0u : 1u);
        EXPECT_EQ(playback().animationCount(), reached ? 0u : 1u);
        refusals += answer == Answer::Refused ? 1 : 0;
        EXPECT_TRUE(command->cmdExcImp()->finish());
        EXPECT_TRUE(removing(0, 0)->run());
    }
    EXPECT_GE(refusals, 2);  // the scene's list of children, the playback's list of animations
}

}  // namespace
