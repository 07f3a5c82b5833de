#pragma once

#include <osg/FrameStamp>
#include <osgUtil/UpdateVisitor>

#include <chrono>
#include <future>
#include <memory>
#include <string>

#include "KivAnimation/basicanimationmanager.h"
#include "KivTaskCommand/commandthread.h"
#include "tests/soak/rounds.h"
#include "tests/support/contentfolder.h"
#include "tests/support/figures.h"
#include "tests/support/freshhost.h"

namespace KivTestSupport {

/// A host with the small avatar, a command thread's gate and a frame loop on the test's thread.
class SoakHost : public FreshHost
{
protected:
    SoakHost() : m_content("soak") {}

    void SetUp() override
    {
        FreshHost::SetUp();
        m_content.writeAvatar(*smallAvatar());
        m_content.copyFont();
        ASSERT_TRUE(manager().initalCharacterModel(m_content.root()));
        // Made before any second thread looks for it, as a host does that registers its observers at start.
        manager().UnRegistPropsPropertyChangeNotify(nullptr);
    }

    static KivCharacterization::CharacterizationManager& manager()
    {
        return *KivCharacterization::CharacterizationManager::instance();
    }
    static osg::Group& scene() { return *KivMemoryShare::SceneCfgShare::instance()->getCharacterSceneNode(); }
    static KivAnimation::BasicAnimationManager& playback()
    {
        return *KivMemoryShare::SceneCfgShare::instance()->getBaseAnimationManager();
    }

    using Command = std::unique_ptr<KivTaskCommand::TaskCommand>;

    static Command loading(const std::string& bvh, int index)
    {
        auto command = std::make_unique<KivTaskCommand::TaskCommand>();
        manager().createLoadBVHCommand(bvh, index, "Actor " + std::to_string(index), command.get());
        return command;
    }
    static Command removing(std::size_t count, unsigned int index)
    {
        auto command = std::make_unique<KivTaskCommand::TaskCommand>();
        manager().ClearOrRemoveActor(command.get(), count, index);
        return command;
    }
    static Command renaming(unsigned int index, const std::string& name)
    {
        auto command = std::make_unique<KivTaskCommand::TaskCommand>();
        manager().createChangeActorNameCommand(index, name, command.get());
        return command;
    }

    /// One frame: the scene belongs to it from close to open.
    template <typename WithinFrame>
    void frame(WithinFrame&& within)
    {
        m_gate.close();
        const osg::ref_ptr<osg::FrameStamp> stamp = new osg::FrameStamp;
        stamp->setFrameNumber(static_cast<unsigned int>(++m_frames));
        stamp->setSimulationTime(static_cast<double>(m_frames) / 60.0);
        const osg::ref_ptr<osgUtil::UpdateVisitor> visitor = new osgUtil::UpdateVisitor;
        visitor->setFrameStamp(stamp.get());
        scene().accept(*visitor);
        scene().getBound();
        within();
        m_gate.open();
    }

    /// Frames until a command has answered.
    template <typename WithinFrame>
    bool framesUntil(std::future<bool> answer, WithinFrame&& within)
    {
        do {
            frame(within);
        } while (answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready);
        return answer.get();
    }
    bool framesUntil(std::future<bool> answer)
    {
        return framesUntil(std::move(answer), [] {});
    }

    ContentFolder m_content;
    KivTaskCommand::SceneGate m_gate;
    unsigned long long m_frames = 0;
};

}  // namespace KivTestSupport
