#include "apps/kivplayer/session/session.h"

#include <osgDB/Options>

#include <cmath>
#include <exception>
#include <utility>

#include "KivCharacterization/characterizationmanager.h"
#include "KivCharacterization/naming.h"
#include "KivErrorOperator/tavrincommonerrormsg.h"
#include "KivMemoryShare/actorframemanager.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivReader/readerwriterbvh.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "apps/kivplayer/content/bareskeleton.h"
#include "apps/kivplayer/content/surfaces.h"

namespace KivPlayer {

using KivCharacterization::CharacterizationManager;
using KivMemoryShare::SceneCfgShare;
using KivTaskCommand::TaskCommand;

namespace {

osg::Group& characterScene()
{
    return *SceneCfgShare::instance()->getCharacterSceneNode();
}

/// Why the reader refuses a text that is well-formed, in its own words.
std::string readersReason(const std::string& text)
{
    osg::Node* node = nullptr;
    KivAnimation::Animation* animation = nullptr;
    std::string name;
    const bool read = KivReader::ReaderWriterBVH::readBVHNode(text, nullptr, &node, &animation, name, true);
    const osg::ref_ptr<osg::Node> holdNode = node;
    const osg::ref_ptr<KivAnimation::Animation> holdAnimation = animation;
    return read ? std::string() : KivReader::ReaderWriterBVH::lastError();
}

bool attachLoad(CharacterizationManager& manager, const MotionFile& motion, TaskCommand& command)
{
    const LoadedActor& actor = motion.actor;
    return manager.createLoadBVHCommand(motion.text, static_cast<int>(actor.index), actor.name, &command);
}

void poseAtStart(const std::string& actorId)
{
    for (KivAnimation::Animation* animation :
         SceneCfgShare::instance()->getBaseAnimationManager()->animations())
        if (animation->getId() == actorId)
            animation->pose(0.0);
}

}  // namespace

Session::Session(Console& console, const std::string& reading)
    : m_console(console),
      m_reader(console, reading),
      m_spCommands(std::make_unique<KivTaskCommand::CommandThread>(m_gate))
{
    // The module reads without options of its own.
    KivReader::ReaderWriterBVH::setDefaultOptions(new osgDB::Options(reading));
}

Session::~Session()
{
    m_actors.clear();
    run([](CharacterizationManager& manager, TaskCommand& command) {
        return manager.ClearOrRemoveActor(&command, 0, 0);
    });
    m_spCommands.reset();
    CharacterizationManager::releaseIns();
    KivReader::ReaderWriterBVH::setDefaultOptions(nullptr);
    KivMemoryShare::ActorFrameManager::Ins()->Clear();
    KivRenderState::KivRenderStateManager::instance()->reset();
    SceneCfgShare::instance()->reset();
}

bool Session::start(const std::string& root)
{
    m_avatarPath = avatarBelow(root);
    m_fontPath = root + "/Data/Font/arial.ttf";
    KivErrorOperator::TavrinCommonErrorMsg::instance()->clear();
    // The module does not answer whether an avatar is there; the player reads the file by itself meanwhile.
    std::future<AvatarFile> avatar =
        std::async(std::launch::async, [path = m_avatarPath] { return AvatarFile::read(path); });
    const bool fontThere = CharacterizationManager::instance()->initalCharacterModel(root);
    m_avatar = avatar.get();
    if (!fontThere)
        m_console.error({m_fontPath, 0, 0, "the label font cannot be read"});
    if (m_avatar.isEmpty())
        m_console.error({m_avatarPath, 0, 0, "the avatar cannot be read"});
    const bool tableThere = m_reader.readProfileTable();
    return !m_avatar.isEmpty() && tableThere;
}

bool Session::load(unsigned index, const std::string& file, const std::string& name)
{
    std::optional<MotionFile> motion = read(index, file, name);
    if (!motion)
        return false;
    const bool built = run([&motion](CharacterizationManager& manager, TaskCommand& command) {
        return attachLoad(manager, *motion, command);
    });
    return finish(std::move(*motion), built);
}

std::future<bool> Session::build(const MotionFile& motion)
{
    return submit([&motion](CharacterizationManager& manager, TaskCommand& command) {
        return attachLoad(manager, motion, command);
    });
}

bool Session::finish(MotionFile motion, bool built)
{
    LoadedActor& actor = motion.actor;
    m_actors.erase(actor.index);
    std::optional<DressedActor> dressed;
    if (built) {
        const KivTaskCommand::SceneGate::Pass pass(m_gate);
        dressed = DressedActor::find(characterScene(), actor.id());
        if (dressed && !actor.isPerson) {
            poseAtStart(actor.id());
            makeBare(*dressed);
        }
        if (dressed)
            describeSurfaces(dressed->root());
        keepOffsets();
    }
    if (!dressed) {
        std::string reason = readersReason(motion.text);
        if (reason.empty())
            reason = m_avatar.isEmpty() ? "there is no avatar to dress it with"
                                        : "the skeleton could not be dressed";
        m_console.error({actor.file, 0, 0, reason});
        return false;
    }
    actor.dressed = std::move(*dressed);
    actor.offset = offsetOf(actor.index);
    m_console.note(actor.file + ": actor " + actor.id() + ", " +
                   std::to_string(actor.dressed.joints().size()) + " joints, " +
                   std::to_string(actor.frames()) + " frames");
    m_actors.emplace(actor.index, std::move(actor));
    return true;
}

void Session::forget(unsigned index)
{
    m_actors.erase(index);
    m_offsets.erase(index);
    KivMemoryShare::ActorFrameManager::Ins()->RemoveActor(index);
}

void Session::noteName(unsigned index, const std::string& name)
{
    const auto actor = m_actors.find(index);
    if (actor != m_actors.end())
        actor->second.name = name;
}

bool Session::remove(unsigned index)
{
    forget(index);
    return run([index](CharacterizationManager& manager, TaskCommand& command) {
        return manager.ClearOrRemoveActor(&command, 1, index);
    });
}

bool Session::rename(unsigned index, const std::string& name)
{
    const bool renamed = run([&](CharacterizationManager& manager, TaskCommand& command) {
        return manager.createChangeActorNameCommand(index, name, &command);
    });
    if (renamed)
        noteName(index, name);
    return renamed;
}

double Session::offsetOf(unsigned index) const
{
    const auto offset = m_offsets.find(index);
    return offset != m_offsets.end() ? offset->second : 0.0;
}

bool Session::setOffset(unsigned index, double seconds)
{
    if (!(std::abs(seconds) <= kMaxOffset))
        return false;
    const KivTaskCommand::SceneGate::Pass pass(m_gate);
    m_offsets[index] = seconds;
    const auto actor = m_actors.find(index);
    if (actor != m_actors.end())
        actor->second.offset = seconds;
    keepOffsets();
    return true;
}

void Session::keepOffsets() const
{
    for (KivAnimation::Animation* animation :
         SceneCfgShare::instance()->getBaseAnimationManager()->animations())
        for (const auto& [index, seconds] : m_offsets)
            if (animation->getId() == std::to_string(index))
                animation->setStartTime(seconds);
}

bool Session::showPropsDraggers(bool shown)
{
    bool all = true;
    for (const auto& [index, actor] : m_actors) {
        for (const DressedActor::Joint& joint : actor.dressed.joints()) {
            if (!KivCharacterization::IsPropsJoint(joint.name))
                continue;
            all &= run([&, i = index](CharacterizationManager& manager, TaskCommand& command) {
                return manager.ShowPropsDragger(&command, static_cast<int>(i), joint.name, shown);
            });
        }
    }
    return all;
}

void Session::showNames(bool shown)
{
    const KivTaskCommand::SceneGate::Pass pass(m_gate);
    for (const auto& [index, actor] : m_actors) {
        osg::Switch* label = actor.dressed.labelSwitch();
        if (label && shown)
            label->setAllChildrenOn();
        else if (label)
            label->setAllChildrenOff();
    }
}

std::future<bool> Session::submit(const Attach& attach)
{
    auto command = std::make_unique<TaskCommand>();
    if (attach(*CharacterizationManager::instance(), *command))
        return m_spCommands->submit(std::move(command));
    std::promise<bool> refused;
    refused.set_value(false);
    return refused.get_future();
}

bool Session::run(const Attach& attach)
{
    try {
        return submit(attach).get();
    } catch (const std::exception& problem) {
        m_console.error({"", 0, 0, std::string("a command failed: ") + problem.what()});
        return false;
    }
}

}  // namespace KivPlayer
