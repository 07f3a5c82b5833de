#include "apps/kivplayer/window/propcontroller.h"

#include <map>

#include "KivCharacterization/characterizationmanager.h"

namespace KivPlayer {

using KivCharacterization::CharacterizationManager;
using KivTaskCommand::TaskCommand;

PropController::PropController(const PlayerContext& context) : m_context(context)
{
    CharacterizationManager::instance()->RegistPropsPropertyChangeNotify(&m_watch);
}

PropController::~PropController()
{
    CharacterizationManager::instance()->UnRegistPropsPropertyChangeNotify(&m_watch);
}

void PropController::showDragger(const std::string& prop, bool shown)
{
    const PropState* one = m_watch.find(prop);
    if (!one)
        return;
    m_context.commands.send(
        "dragger of " + one->name, [&](CharacterizationManager& manager, TaskCommand& command) {
            return manager.ShowPropsDragger(&command, static_cast<int>(one->actor), one->name, shown);
        });
}

void PropController::showContactDragger(const std::string& prop, bool shown)
{
    const PropState* one = m_watch.find(prop);
    if (!one)
        return;
    m_context.commands.send(
        "contact point of " + one->name, [&](CharacterizationManager& manager, TaskCommand& command) {
            return manager.ShowContactPointDragger(&command, static_cast<int>(one->actor), one->name, shown);
        });
}

void PropController::showDraggers(bool shown)
{
    for (const PropsWatch::Entry& one : m_watch.all())
        showDragger(one.state.fullName, shown);
}

void PropController::showContactDraggers(bool shown)
{
    for (const PropsWatch::Entry& one : m_watch.all())
        showContactDragger(one.state.fullName, shown);
}

void PropController::pose(const PoseProp& wanted)
{
    PropState* one = m_watch.find(wanted.prop);
    if (!one)
        return;
    // The panel shows at once what the scene will have: the next edit goes on from there.
    one->position = wanted.position;
    one->rotation = wanted.rotation;
    const osg::Matrixd matrix = one->matrix();
    m_context.commands.send("pose of " + one->name, [&](CharacterizationManager& manager,
                                                        TaskCommand& command) {
        return manager.SetPropsGemoetryMat(&command, static_cast<int>(one->actor), one->name, matrix.ptr());
    });
}

void PropController::finishDrags()
{
    const KivTaskCommand::SceneGate::Pass pass(m_context.session.gate());
    m_watch.finishDrags();
}

void PropController::takeActors()
{
    std::map<unsigned, osg::Node*> roots;
    for (const auto& [index, actor] : m_context.session.actors())
        roots[index] = &actor.dressed.root();
    m_watch.setActors(roots);
}

void PropController::updateState()
{
    const KivTaskCommand::SceneGate::Pass pass(m_context.session.gate());
    m_watch.readDraggers();
    m_watch.copyTo(m_context.state.props);
}

}  // namespace KivPlayer
