#include "apps/kivplayer/window/inspection/statejson.h"

#include <imgui.h>

#include "KivRenderState/kivrenderstatemanager.h"

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

/// Where a prop and the handles of its draggers are seen.
void addPositionsInWindow(const KivManipulator::PropsGeode& geode, const osg::Vec3d& position,
                          const osg::Camera& camera, ordered_json& entry)
{
    const osg::Matrixd toWindow =
        camera.getViewMatrix() * camera.getProjectionMatrix() * camera.getViewport()->computeWindowMatrix();
    const osg::MatrixList toWorld = geode.getWorldMatrices();
    const osg::Matrixd boneToWindow = (toWorld.empty() ? osg::Matrixd() : toWorld.front()) * toWindow;
    const auto inWindow = [&](const osg::Vec3d& point) -> ordered_json {
        const osg::Vec3d at = point * boneToWindow;
        return {at.x(), camera.getViewport()->height() - at.y()};
    };
    entry["inScene"] = numbers(geode.getPropsGeometryMat().getTrans());
    entry["seenAt"] = inWindow(position);
    for (const osg::Vec3d& handle : geode.getPropsDraggerHandles())
        entry["handles"].push_back(inWindow(handle));
    for (const osg::Vec3d& handle : geode.getContactPointDraggerHandles())
        entry["contactHandles"].push_back(inWindow(handle));
}

ordered_json propsJson(const Inspection& inspection)
{
    ordered_json list = ordered_json::array();
    for (const PropsWatch::Entry& one : inspection.props.all()) {
        const PropState& prop = one.state;
        ordered_json entry{{"name", prop.fullName},
                           {"position", numbers(prop.position)},
                           {"angles", numbers(prop.angles())},
                           {"contactPoint", numbers(prop.contactPoint)},
                           {"dragger", prop.draggerShown},
                           {"contactDragger", prop.contactDraggerShown},
                           {"dragged", prop.dragged},
                           {"changes", prop.changes},
                           {"drags", prop.drags}};
        osg::ref_ptr<KivManipulator::PropsGeode> geode;
        if (one.geode.lock(geode))
            addPositionsInWindow(*geode, prop.position, inspection.camera, entry);
        list.push_back(entry);
    }
    return list;
}

ordered_json widgetsJson(const WidgetLog& widgets)
{
    ordered_json list = ordered_json::object();
    for (const auto& [name, rect] : widgets.rects())
        list[name] = {rect.x, rect.y, rect.width, rect.height};
    return list;
}

ordered_json actorsJson(const WindowState& state)
{
    ordered_json list = ordered_json::array();
    for (const ActorState& actor : state.actors)
        list.push_back({{"actorId", actor.id()},
                        {"name", actor.name},
                        {"file", actor.file},
                        {"frames", actor.frames},
                        {"offset", actor.offset},
                        {"visible", actor.visible}});
    return list;
}

ordered_json errorsJson(const WindowState& state)
{
    ordered_json list = ordered_json::array();
    for (const LogLine& line : state.log)
        if (line.isError)
            list.push_back(line.text);
    return list;
}

ordered_json startUpJson(const Inspection& inspection)
{
    ordered_json list = ordered_json::object();
    for (const auto& [part, seconds] : inspection.startUp)
        list[part] = seconds;
    return list;
}

void addTransport(const Transport& transport, ordered_json& all)
{
    all["playing"] = transport.isPlaying();
    all["looping"] = transport.isLooping();
    all["time"] = transport.time();
    all["duration"] = transport.duration();
    all["frame"] = transport.frame();
    all["frames"] = transport.frameCount();
    all["speed"] = transport.speed();
}

ordered_json frameTimesJson(const FrameTimes& times)
{
    return {{"frames", times.frames},
            {"mean", times.mean},
            {"worst", times.worst},
            {"between", times.between},
            {"longestBetween", times.longestBetween},
            {"longest", times.longest}};
}

}  // namespace

ordered_json stateJson(const Inspection& inspection)
{
    const WindowState& state = inspection.state;
    ordered_json all{{"running", inspection.isRunning},
                     {"loading", state.loading.isBusy},
                     {"commands", inspection.commands}};
    addTransport(state.transport, all);
    for (const OverlayEntry& entry : overlayTable())
        all[entry.name] = state.shown[entry.overlay];
    all["typing"] = ImGui::GetIO().WantTextInput;
    all["panel"] = inspection.focusedPanel;
    all["control"] = inspection.widgets.focused();
    all["contactColours"] = contactColours();
    all["followed"] = state.followed ? ordered_json(*state.followed) : ordered_json(nullptr);
    all["camera"] = {{"eye", numbers(inspection.pose.eye)}, {"target", numbers(inspection.pose.target)}};
    all["picture"] = {state.area.width(), state.area.height()};
    all["actors"] = actorsJson(state);
    all["propList"] = propsJson(inspection);
    all["errors"] = errorsJson(state);
    all["message"] = state.message;
    all["pictures"] = inspection.pictures;
    all["places"] = widgetsJson(inspection.widgets);
    all["startUp"] = startUpJson(inspection);
    all["frameTimes"] = frameTimesJson(state.frameTimes);
    return all;
}

}  // namespace KivPlayer
