#include "benchmarks/support/modulehost.h"

#include <stdexcept>

#include "KivMemoryShare/actorframemanager.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "tests/support/manageraccess.h"

namespace KivBenchmark {

using KivCharacterization::CharacterizationManager;
using KivMemoryShare::SceneCfgShare;

ModuleHost::ModuleHost()
{
    if (!manager().initalCharacterModel(KIV_RUNTIME_ROOT))
        throw std::runtime_error("avatar or font are missing in " KIV_RUNTIME_ROOT);
}

ModuleHost::ModuleHost(const KivCharacterization::CommonTypeDef::SIveInfo& avatar) : ModuleHost()
{
    KivCharacterization::CharacterizationManagerAccess(manager()).avatars.begin()->second = avatar;
}

ModuleHost::~ModuleHost()
{
    CharacterizationManager::releaseIns();
    SceneCfgShare::instance()->reset();
    KivMemoryShare::ActorFrameManager::Ins()->Clear();
    KivRenderState::KivRenderStateManager::instance()->reset();
}

CharacterizationManager& ModuleHost::manager()
{
    return *CharacterizationManager::instance();
}

osg::Group& ModuleHost::scene()
{
    return *SceneCfgShare::instance()->getCharacterSceneNode();
}

void ModuleHost::load(const std::string& motion, int actor)
{
    KivTaskCommand::TaskCommand command;
    manager().createLoadBVHCommand(motion, actor, "Actor " + std::to_string(actor), &command);
    run(command);
}

void ModuleHost::loadMany(const std::string& motion, int actors)
{
    for (int actor = 0; actor < actors; ++actor)
        load(motion, actor);
}

void ModuleHost::remove(int actor)
{
    KivTaskCommand::TaskCommand command;
    manager().ClearOrRemoveActor(&command, 1, static_cast<unsigned>(actor));
    run(command);
}

void ModuleHost::removeAll()
{
    KivTaskCommand::TaskCommand command;
    manager().ClearOrRemoveActor(&command, 0, 0);
    run(command);
}

void ModuleHost::rename(int actor, const std::string& name)
{
    KivTaskCommand::TaskCommand command;
    manager().createChangeActorNameCommand(static_cast<unsigned>(actor), name, &command);
    run(command);
}

void ModuleHost::paintContacts(const std::string& joint)
{
    KivTaskCommand::TaskCommand command;
    manager().ChangeActorStactColorCommand(joint, {{0.1f, 0.2f, 0.3f}, 0.4f, 0.5f, 0.6f}, &command);
    run(command);
}

void ModuleHost::run(KivTaskCommand::TaskCommand& command)
{
    if (!command.run())
        throw std::runtime_error("a command has failed");
}

}  // namespace KivBenchmark
