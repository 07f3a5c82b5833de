#pragma once

#include <osgUtil/UpdateVisitor>

#include <functional>
#include <memory>

#include "KivAnimation/basicanimationmanager.h"
#include "KivCharacterization/characterizationmanager.h"
#include "KivTaskCommand/taskcommand.h"
#include "tests/support/builtpaths.h"
#include "tests/support/freshhost.h"

namespace KivTestSupport {

/// A host with the shipped avatar and font loaded, that runs commands on the calling thread.
class ShippedHost : public FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        ASSERT_TRUE(manager().initalCharacterModel(KivTestSupport::kRuntimeRoot));
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

    /// Attaches a command with `create` and runs it.
    static bool run(const std::function<bool(KivTaskCommand::TaskCommand*)>& create)
    {
        KivTaskCommand::TaskCommand command;
        return create(&command) && command.run();
    }
    static bool load(const std::string& bvh, int index, const std::string& name)
    {
        return run([&](auto* command) { return manager().createLoadBVHCommand(bvh, index, name, command); });
    }
    static bool remove(std::size_t count, unsigned int index)
    {
        return run([&](auto* command) { return manager().ClearOrRemoveActor(command, count, index); });
    }

    static void updateScene()
    {
        osg::ref_ptr<osgUtil::UpdateVisitor> visitor = new osgUtil::UpdateVisitor;
        scene().accept(*visitor);
    }
};

}  // namespace KivTestSupport
