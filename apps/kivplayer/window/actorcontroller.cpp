#include "apps/kivplayer/window/actorcontroller.h"

#include <algorithm>
#include <filesystem>

#include "KivCharacterization/characterizationmanager.h"

namespace KivPlayer {

using KivCharacterization::CharacterizationManager;
using KivTaskCommand::TaskCommand;

namespace {

std::string stemOf(const std::string& file)
{
    return std::filesystem::path(file).stem().string();
}

}  // namespace

void ActorController::loadAll()
{
    const Options& options = m_context.options;
    m_next = static_cast<unsigned>(options.motions.size());
    for (const auto& [actor, seconds] : options.offsets)
        m_context.session.setOffset(actor, seconds);
    for (std::size_t i = 0; i < options.motions.size(); ++i)
        m_context.scene.loader().load(
            static_cast<unsigned>(i), options.motions[i],
            i < options.names.size() ? options.names[i] : stemOf(options.motions[i]));
}

void ActorController::load(const std::string& file)
{
    const auto& actors = m_context.session.actors();
    const unsigned next = std::max(m_next, actors.empty() ? 0 : actors.rbegin()->first + 1);
    m_context.scene.loader().load(next, file, stemOf(file));
    m_next = next + 1;
}

void ActorController::replace(unsigned actor, const std::string& file)
{
    const auto found = m_context.session.actors().find(actor);
    if (found == m_context.session.actors().end())
        return;
    const LoadedActor& old = found->second;
    // A name that came from the old file goes with it.
    m_context.scene.loader().load(actor, file, old.name == stemOf(old.file) ? stemOf(file) : old.name);
}

void ActorController::remove(unsigned actor)
{
    m_context.session.forget(actor);
    m_hidden.erase(actor);
    m_context.commands.send("remove", [actor](CharacterizationManager& manager, TaskCommand& command) {
        return manager.ClearOrRemoveActor(&command, 1, actor);
    });
}

void ActorController::rename(unsigned actor, const std::string& name)
{
    m_context.commands.send(
        "rename",
        [actor, &name](CharacterizationManager& manager, TaskCommand& command) {
            return manager.createChangeActorNameCommand(actor, name, &command);
        },
        [this, actor, name](bool done) {
            if (!done)
                return;
            m_context.session.noteName(actor, name);
            updateState();
        });
}

void ActorController::show(unsigned actor, bool shown)
{
    if (shown)
        m_hidden.erase(actor);
    else
        m_hidden.insert(actor);
    const KivTaskCommand::SceneGate::Pass pass(m_context.session.gate());
    applyVisibility();
    updateState();
}

void ActorController::offset(unsigned actor, double seconds)
{
    if (!m_context.session.setOffset(actor, seconds))
        return;
    Transport& transport = m_context.state.transport;
    m_context.scene.publisher().setActors(m_context.session.actors());
    transport.setMotion(m_context.scene.publisher().duration(), transport.frameTime());
    updateState();
}

void ActorController::reloadChangedFiles(double seconds)
{
    if (m_context.scene.loader().isBusy())
        return;
    std::set<std::string> files;
    for (const auto& [index, actor] : m_context.session.actors())
        files.insert(actor.file);
    const std::set<std::string> changed = m_watch.changed(files, seconds);
    for (const auto& [index, actor] : m_context.session.actors())
        if (changed.count(actor.file) > 0)
            replace(index, actor.file);
}

void ActorController::applyVisibility() const
{
    for (const auto& [index, actor] : m_context.session.actors())
        actor.dressed.root().setNodeMask(m_hidden.count(index) == 0 ? ~0u : 0u);
}

void ActorController::updateState() const
{
    WindowState& state = m_context.state;
    state.actors.clear();
    state.jointNames.clear();
    for (const auto& [index, actor] : m_context.session.actors()) {
        state.actors.push_back({index, actor.name, actor.file, actor.frames(), actor.dressed.joints().size(),
                                actor.offset, m_hidden.count(index) == 0});
        for (const DressedActor::Joint& joint : actor.dressed.joints())
            state.jointNames.insert(joint.name);
    }
}

}  // namespace KivPlayer
