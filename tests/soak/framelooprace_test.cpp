#include <gtest/gtest.h>
#include <osg/NodeVisitor>

#include <array>
#include <atomic>
#include <thread>
#include <vector>

#include "KivCharacterization/ipropspropertymodifynotify.h"
#include "KivManipulator/propsgeode.h"
#include "tests/soak/soakhost.h"

namespace {

using namespace KivTestSupport;
using KivMemoryShare::ActorFrameManager;
using KivRenderState::KivRenderStateManager;
using KivTaskCommand::CommandThread;

constexpr unsigned int kActors = 4;

class CountingObserver : public IPropsPropertyModifyNotify
{
public:
    bool PropsVectorsChanged(const osg::Vec3f&, const osg::Vec3f&) override { return ++heard > 0; }
    bool PropsValuesChanged(const osg::Quat&, const osg::Vec3d&) override { return ++heard > 0; }
    bool PropsFlagChanged(bool) override { return ++heard > 0; }
    bool IsPropsConcerned(const std::string&) override { return true; }

    unsigned long long heard = 0;
};

/// Reports a change of every props in the scene, as its draggers would.
class PropsChange : public osg::NodeVisitor
{
public:
    PropsChange() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }
    using osg::NodeVisitor::apply;
    void apply(osg::MatrixTransform& node) override
    {
        if (auto* props = dynamic_cast<KivManipulator::PropsGeode*>(&node)) {
            props->getNotify()->PropsFlagChanged(props->getPropsName(), true);
            props->getNotify()->PropsVectorsChanged(props->getPropsName(), props->getPropsPosition(),
                                                    props->getContactPoint());
            props->getNotify()->PropsValuesChanged(props->getPropsName(), osg::Quat(), osg::Vec3d(1, 1, 1));
            props->getNotify()->PropsFlagChanged(props->getPropsName(), false);
        }
        traverse(node);
    }
};

/// Writes frame data of every actor, and takes it away, on a thread of its own until it is destroyed.
class FrameDataWriter
{
public:
    FrameDataWriter() : m_thread([this] { run(); }) {}
    ~FrameDataWriter()
    {
        m_stop = true;
        m_thread.join();
    }

private:
    void run()
    {
        std::array<KivCommonDef::KIV_STICKCONTACT, 7> contacts{};
        for (unsigned int round = 0; !m_stop; ++round) {
            const unsigned int actor = round % kActors;
            const float centre[3] = {1.0f, 2.0f, static_cast<float>(round % 100)};
            ActorFrameManager::Ins()->WriteActorGravity(actor, centre, 3);
            ActorFrameManager::Ins()->WriteActorStickContact(actor, contacts.data(), round % contacts.size());
            if (round % 64 == 63) {
                ActorFrameManager::Ins()->RemoveActor(actor);
            }
            std::this_thread::yield();
        }
    }

    std::atomic<bool> m_stop{false};
    std::thread m_thread;
};

class FrameLoopRace : public SoakHost
{
protected:
    /// What a user does in between, picked by the number of the step.
    static Command step(int number)
    {
        const int index = number % static_cast<int>(kActors);
        auto command = std::make_unique<KivTaskCommand::TaskCommand>();
        switch (number % 9) {
            case 3:
                return renaming(static_cast<unsigned int>(index), "Renamed " + std::to_string(number));
            case 4:
                manager().ChangeActorStactColorCommand("LeftLeg", {{}, 1.0f, 0.5f, 0.0f}, command.get());
                return command;
            case 5:
                manager().ShowPropsDragger(command.get(), index, "LeftProps", number % 2 == 0);
                return command;
            case 6:
                return loading("no motion", index);
            case 7:
                return removing(1, static_cast<unsigned int>(index));
            case 8:
                if (number % 36 == 35) {
                    manager().ResetCharacterizationManager(command.get());
                    return command;
                }
                [[fallthrough]];
            default:
                return loading(number % 2 == 0 ? smallFigureWithPropsBvh() : smallFigureBvh(), index);
        }
    }

    /// What a window's thread does with a frame of its own.
    void withinFrame(CountingObserver& observer)
    {
        manager().RegistPropsPropertyChangeNotify(&observer);
        const osg::ref_ptr<PropsChange> change = new PropsChange;
        scene().accept(*change);
        manager().UnRegistPropsPropertyChangeNotify(&observer);
        auto* state = KivRenderStateManager::instance();
        state->setCenterOfMassShow(m_frames % 2 == 0);
        state->getBVHContactColor();
        KivErrorOperator::TavrinCommonErrorMsg::instance()->history();
    }
};

TEST_F(FrameLoopRace, framesFrameDataAndPropsNewsRunBesideEveryCommand)
{
    CountingObserver observer;
    const FrameDataWriter writer;
    CommandThread commands(m_gate);
    const int steps = rounds(90);
    int succeeded = 0;
    for (int number = 0; number < steps; ++number) {
        succeeded += framesUntil(commands.submit(step(number)), [&] { withinFrame(observer); }) ? 1 : 0;
    }
    EXPECT_TRUE(framesUntil(commands.submit(loading(smallFigureBvh(), 1))));
    EXPECT_GT(succeeded, steps / 3);
    EXPECT_GT(observer.heard, 0u);
    EXPECT_EQ(KivRenderStateManager::instance()->getCharacterizationState(),
              KivCharacterizationCommonDef::CharacterizationReady);
}

TEST_F(FrameLoopRace, aQueueOfCommandsDrainsUnderARunningLoop)
{
    CountingObserver observer;
    const FrameDataWriter writer;
    std::vector<std::future<bool>> answers;
    CommandThread commands(m_gate);
    for (int number = 0; number < 24; ++number) {
        answers.push_back(commands.submit(loading(smallFigureWithPropsBvh(), number % 4)));
    }
    for (auto& answer : answers) {
        EXPECT_TRUE(framesUntil(std::move(answer), [&] { withinFrame(observer); }));
    }
    EXPECT_EQ(scene().getNumChildren(), kActors);
}

}  // namespace
