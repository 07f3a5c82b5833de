#include <imgui.h>

#include "KivRenderState/kivrenderstatemanager.h"
#include "apps/kivplayer/window/playerwindow.h"
#include "apps/kivplayer/window/startup.h"

namespace KivPlayer {

using nlohmann::ordered_json;

namespace {

ordered_json numbers(const osg::Vec3d& vector)
{
    return {vector.x(), vector.y(), vector.z()};
}

/// Of the joints that somebody has painted.
ordered_json contactColours()
{
    ordered_json list = ordered_json::object();
    for (const auto& [joint, colour] :
         KivRenderState::KivRenderStateManager::instance()->getBVHContactColor())
        list[joint] = {colour.red, colour.green, colour.blue};
    return list;
}

}  // namespace

void PlayerWindow::writeState(bool always)
{
    if (!m_stateFile.isWanted() || (!m_stateFile.isDue(now()) && !always))
        return;
    ordered_json all;
    {
        // Camera and props are told of, and a command may be changing them.
        const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
        all = state();
    }
    all["running"] = !always;
    if (!m_stateFile.write(all) && always)
        m_console.error({m_options.stateFile, 0, 0, "cannot be written"});
}

ordered_json PlayerWindow::propsState() const
{
    const osg::Camera& camera = m_window.camera();
    const osg::Matrixd toWindow =
        camera.getViewMatrix() * camera.getProjectionMatrix() * camera.getViewport()->computeWindowMatrix();
    ordered_json list = ordered_json::array();
    for (const WatchedProps& one : props.all()) {
        ordered_json entry{{"name", one.fullName},
                           {"position", numbers(one.position)},
                           {"angles", numbers(one.angles())},
                           {"contactPoint", numbers(one.contactPoint)},
                           {"dragger", one.draggerShown},
                           {"contactDragger", one.contactDraggerShown},
                           {"dragged", one.dragged},
                           {"changes", one.changes},
                           {"drags", one.drags}};
        osg::ref_ptr<KivManipulator::PropsGeode> geode;
        if (one.geode.lock(geode)) {
            // What is told in the frame of the bone, where it is seen.
            const osg::MatrixList toWorld = geode->getWorldMatrices();
            const osg::Matrixd seen = (toWorld.empty() ? osg::Matrixd() : toWorld.front()) * toWindow;
            const auto inWindow = [&](const osg::Vec3d& place) -> ordered_json {
                const osg::Vec3d at = place * seen;
                return {at.x(), camera.getViewport()->height() - at.y()};
            };
            entry["inScene"] = numbers(geode->getPropsGeometryMat().getTrans());
            entry["seenAt"] = inWindow(one.position);
            for (const osg::Vec3d& handle : geode->getPropsDraggerHandles())
                entry["handles"].push_back(inWindow(handle));
            for (const osg::Vec3d& handle : geode->getContactPointDraggerHandles())
                entry["contactHandles"].push_back(inWindow(handle));
        }
        list.push_back(entry);
    }
    return list;
}

ordered_json PlayerWindow::placesState() const
{
    ordered_json list = ordered_json::object();
    for (const auto& [name, where] : places)
        list[name] = {where.x, where.y, where.width, where.height};
    return list;
}

ordered_json PlayerWindow::state() const
{
    ordered_json actorList = ordered_json::array();
    for (const auto& [index, actor] : actors())
        actorList.push_back({{"actorId", actor.id()},
                             {"name", actor.name},
                             {"file", actor.file},
                             {"frames", actor.frames()},
                             {"offset", actor.offset},
                             {"visible", isVisible(index)}});
    ordered_json startList = ordered_json::object();
    for (const auto& [part, seconds] : startUp().parts())
        startList[part] = seconds;
    ordered_json errors = ordered_json::array();
    for (const LogLine& line : m_log)
        if (line.isError)
            errors.push_back(line.text);
    const CameraPose pose = m_camera.pose();
    const std::optional<unsigned> along = followed();
    const FrameTimes& times = m_pace.times();
    const FreeArea free = area();
    return {{"running", true},
            {"loading", m_starting || m_scene.loader().isBusy()},
            {"commands", m_commands.count()},
            {"playing", transport.isPlaying()},
            {"looping", transport.isLooping()},
            {"time", transport.time()},
            {"duration", transport.duration()},
            {"frame", transport.frame()},
            {"frames", transport.frameCount()},
            {"speed", transport.speed()},
            {"names", m_shown.names},
            {"grid", m_shown.grid},
            {"centreOfMass", m_shown.centreOfMass},
            {"contacts", m_shown.contacts},
            {"skeleton", m_shown.skeleton},
            {"shadows", m_detail.shadows()},
            {"fit", m_shown.fit},
            {"help", m_shown.help},
            {"statistics", m_shown.statistics},
            {"typing", ImGui::GetIO().WantTextInput},
            {"panel", m_spInterface->focusedPanel()},
            {"control", control},
            {"contactColours", contactColours()},
            {"followed", along ? ordered_json(*along) : ordered_json(nullptr)},
            {"camera", {{"eye", numbers(pose.eye)}, {"target", numbers(pose.target)}}},
            {"picture", {free.windowWidth - free.left, free.windowHeight - free.bottom}},
            {"actors", actorList},
            {"props", propsState()},
            {"errors", errors},
            {"said", status()},
            {"pictures", m_pictures},
            {"places", placesState()},
            {"startUp", startList},
            {"frameTimes",
             {{"frames", times.frames},
              {"mean", times.mean},
              {"worst", times.worst},
              {"between", times.between},
              {"longestBetween", times.longestBetween},
              {"longest", times.longest}}}};
}

}  // namespace KivPlayer
