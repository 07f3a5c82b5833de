#include "KivMemoryShare/scenecfgshare.h"

#include <osg/observer_ptr>

#include <mutex>

namespace KivMemoryShare {

namespace {

osg::ref_ptr<osg::Group> freshGroup()
{
    osg::ref_ptr<osg::Group> group = new osg::Group;
    group->setName("CharacterScene");
    group->setDataVariance(osg::Object::DYNAMIC);
    return group;
}

bool carries(const osg::Group& group, const osg::Callback* wanted)
{
    for (const osg::Callback* callback = group.getUpdateCallback(); callback;
         callback = callback->getNestedCallback()) {
        if (callback == wanted) {
            return true;
        }
    }
    return false;
}

}  // namespace

struct SceneCfgShare::Scene
{
    struct Parts
    {
        osg::ref_ptr<osg::Group> group;
        osg::ref_ptr<KivAnimation::BasicAnimationManager> manager;
    };

    std::mutex mutex;
    Parts parts;
    osg::observer_ptr<osgViewer::CompositeViewer> viewer;

    /// The manager leaves the old group before it joins the new one: it must never pose from two places.
    /// @return the parts so far, to be released without the lock: what dies with them may ask this singleton.
    Parts replace(const Parts& replacement)
    {
        if (parts.group) {
            parts.group->removeUpdateCallback(parts.manager);
        }
        Parts old = parts;
        parts = replacement;
        if (!carries(*parts.group, parts.manager)) {
            parts.group->addUpdateCallback(parts.manager);
        }
        return old;
    }
};

// Never destroyed: at exit the libraries that scene objects come from may be gone already. reset() releases
// them in time.
SceneCfgShare* SceneCfgShare::instance()
{
    static SceneCfgShare* const s_instance = new SceneCfgShare;
    return s_instance;
}

SceneCfgShare::SceneCfgShare() : m_spScene(std::make_unique<Scene>())
{
    m_spScene->replace({freshGroup(), new KivAnimation::BasicAnimationManager});
}

SceneCfgShare::~SceneCfgShare() = default;

osg::Group* SceneCfgShare::getCharacterSceneNode() const
{
    const std::lock_guard<std::mutex> lock(m_spScene->mutex);
    return m_spScene->parts.group;
}

void SceneCfgShare::setCharacterSceneNode(osg::Group* group)
{
    Scene::Parts released;
    const std::lock_guard<std::mutex> lock(m_spScene->mutex);
    released = m_spScene->replace(
        {group ? osg::ref_ptr<osg::Group>(group) : freshGroup(), m_spScene->parts.manager});
}

KivAnimation::BasicAnimationManager* SceneCfgShare::getBaseAnimationManager() const
{
    const std::lock_guard<std::mutex> lock(m_spScene->mutex);
    return m_spScene->parts.manager;
}

void SceneCfgShare::setBaseAnimationManager(KivAnimation::BasicAnimationManager* manager)
{
    Scene::Parts released;
    const std::lock_guard<std::mutex> lock(m_spScene->mutex);
    released = m_spScene->replace(
        {m_spScene->parts.group, manager ? manager : new KivAnimation::BasicAnimationManager});
}

osgViewer::CompositeViewer* SceneCfgShare::getCompositeViewer() const
{
    const std::lock_guard<std::mutex> lock(m_spScene->mutex);
    return m_spScene->viewer.get();
}

void SceneCfgShare::setCompositeViewer(osgViewer::CompositeViewer* viewer)
{
    const std::lock_guard<std::mutex> lock(m_spScene->mutex);
    m_spScene->viewer = viewer;
}

void SceneCfgShare::reset()
{
    Scene::Parts released;
    const std::lock_guard<std::mutex> lock(m_spScene->mutex);
    released = m_spScene->replace({freshGroup(), new KivAnimation::BasicAnimationManager});
    m_spScene->viewer = nullptr;
}

}  // namespace KivMemoryShare
