#include <gtest/gtest.h>

#include <iostream>

#include "KivCharacterization/Characterization/jointnaming.h"
#include "tests/soak/heapuse.h"
#include "tests/soak/soakhost.h"
#include "tests/support/manageraccess.h"

namespace {

using namespace KivTestSupport;
using KivCharacterization::CharacterizationManagerAccess;
using KivMemoryShare::ActorFrameManager;
using KivTaskCommand::CommandThread;

class Endurance : public SoakHost
{
protected:
    /// One actor's whole life: loaded, replaced, its frame data published, removed.
    void lifeOfAnActor(CommandThread& commands, int round, const std::string& figure)
    {
        const int index = round % 3;
        ASSERT_TRUE(framesUntil(commands.submit(loading(figure, index))));
        const float centre[3] = {0.0f, 90.0f, 0.0f};
        const KivCommonDef::KIV_STICKCONTACT contact{0.1f, 0.2f, 0.3f, 1, {}};
        ActorFrameManager::Ins()->WriteActorGravity(static_cast<unsigned int>(index), centre, 3);
        ActorFrameManager::Ins()->WriteActorStickContact(static_cast<unsigned int>(index), &contact, 1);
        ASSERT_TRUE(framesUntil(commands.submit(loading(figure, index))));
        ASSERT_TRUE(framesUntil(commands.submit(removing(1, static_cast<unsigned int>(index)))));
        ActorFrameManager::Ins()->RemoveActor(static_cast<unsigned int>(index));
    }

    /// Bytes of heap that one life leaves behind, over many; 0 where the heap cannot be measured.
    double bytesLeftByALife(const std::string& figure)
    {
        const int lives = rounds(1000) / 2;
        std::vector<std::pair<double, double>> heap;
        heap.reserve(static_cast<std::size_t>(lives));  // or the measurement is what grows
        CommandThread commands(m_gate);
        for (int life = 0; life < lives && !HasFatalFailure(); ++life) {
            lifeOfAnActor(commands, life, figure);
            // The start fills caches and the error sink's bounded history.
            if (life >= lives / 4) {
                heap.emplace_back(life, heapInUse());
            }
        }
        return kHeapIsMeasured ? slope(heap) : 0.0;
    }

    void expectNothingLeft()
    {
        EXPECT_EQ(scene().getNumChildren(), 0u);
        EXPECT_EQ(playback().animationCount(), 0u);
        EXPECT_TRUE(CharacterizationManagerAccess(manager()).actors.empty());
        EXPECT_EQ(CharacterizationManagerAccess(manager()).avatars.size(), 1u);
        EXPECT_EQ(CharacterizationManagerAccess(manager()).fonts.size(), 1u);
        EXPECT_EQ(KivCharacterization::SpecialJointTable::instance().entries().size(), 18u);
        for (const auto& [name, holder] : KivCharacterization::SpecialJointTable::instance().entries()) {
            EXPECT_FALSE(holder.valid()) << name;
        }
        float values[ActorFrameManager::kGravityFloats] = {};
        float* buffer = values;
        int tag = 0;
        unsigned long long count = 0;
        for (unsigned int actor = 0; actor < 3; ++actor) {
            EXPECT_FALSE(ActorFrameManager::Ins()->ReadActorGravity(actor, &buffer, tag, count));
        }
    }
};

// The heap's own bookkeeping wanders by some bytes a life; the least that could be left behind is a node.
constexpr double kSmallestNode = sizeof(osg::Node);

TEST_F(Endurance, actorsWithoutPropsLeaveNothingBehind)
{
    const double bytes = bytesLeftByALife(smallFigureBvh());
    std::cout << "heap left by a life: " << bytes << " bytes" << std::endl;
    EXPECT_LT(bytes, kSmallestNode) << "a node or more is left by every life";
    expectNothingLeft();
}

// The link between a props and its observers lives as long as the manager, so that a props may outlive its
// actor: a life builds two props, and each leaves a link and its place in a list.
TEST_F(Endurance, actorsWithPropsLeaveTheirLinksAlone)
{
    const double bytes = bytesLeftByALife(smallFigureWithPropsBvh());
    std::cout << "heap left by a life: " << bytes << " bytes" << std::endl;
    EXPECT_LT(bytes, 2 * 80.0 + kSmallestNode);
    expectNothingLeft();
}

TEST_F(Endurance, theManagerStartsAndStopsAHundredTimes)
{
    for (int start = 0; start < 100; ++start) {
        ASSERT_TRUE(manager().initalCharacterModel(m_content.root()));
        ASSERT_TRUE(loading(smallFigureWithPropsBvh(), start)->run());
        ASSERT_TRUE(removing(0, 0)->run());
        KivCharacterization::CharacterizationManager::releaseIns();
        ASSERT_EQ(scene().getNumChildren(), 0u);
    }
}

}  // namespace
