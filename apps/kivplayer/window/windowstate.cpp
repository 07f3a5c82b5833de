#include <imgui.h>

#include "window/playerwindow.h"

namespace KivPlayer {

using nlohmann::ordered_json;

namespace {

ordered_json numbers(const osg::Vec3d& vector)
{
    return {vector.x(), vector.y(), vector.z()};
}

}  // namespace

void PlayerWindow::writeState(bool always)
{
    if (!m_stateFile.isWanted() || (!m_stateFile.isDue(now()) && !always))
        return;
    ordered_json all = state();
    all["running"] = !always;
    if (!m_stateFile.write(all) && always)
        m_console.error({m_options.stateFile, 0, 0, "cannot be written"});
}

ordered_json PlayerWindow::propsState() const
{
    // Where a props is seen: its bone's frame holds its position.
    const osg::Camera& camera = *m_spView->getCamera();
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
            const osg::MatrixList toWorld = geode->getWorldMatrices();
            const osg::Vec3d seen =
                one.position * (toWorld.empty() ? osg::Matrixd() : toWorld.front()) * toWindow;
            entry["seenAt"] = {seen.x(), camera.getViewport()->height() - seen.y()};
        }
        list.push_back(entry);
    }
    return list;
}

ordered_json PlayerWindow::state() const
{
    ordered_json actorList = ordered_json::array();
    for (const auto& [index, actor] : actors())
        actorList.push_back({{"actorId", actor.id()},
                             {"name", actor.name},
                             {"file", actor.file},
                             {"visible", isVisible(index)}});
    ordered_json placeList = ordered_json::object();
    for (const auto& [name, where] : places)
        placeList[name] = {where.x, where.y, where.width, where.height};
    const CameraPose pose = m_camera.pose();
    const std::optional<unsigned> along = followed();
    return {{"running", true},
            {"loading", m_starting || m_loader.isBusy()},
            {"commands", m_pending.size()},
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
            {"help", m_shown.help},
            {"statistics", m_shown.statistics},
            {"typing", ImGui::GetIO().WantTextInput},
            {"followed", along ? ordered_json(*along) : ordered_json(nullptr)},
            {"camera", {{"eye", numbers(pose.eye)}, {"target", numbers(pose.target)}}},
            {"actors", actorList},
            {"props", propsState()},
            {"pictures", m_pictures},
            {"places", placeList},
            {"firstFrameAfter", m_firstFrame},
            {"firstFigureAfter", m_firstFigure},
            {"frameTimes",
             {{"frames", m_frameTimes.frames}, {"mean", m_frameTimes.mean}, {"worst", m_frameTimes.worst}}}};
}

}  // namespace KivPlayer
