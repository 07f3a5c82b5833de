#pragma once

#include <osg/Group>
#include <osg/ref_ptr>
#include <osgViewer/CompositeViewer>

#include <memory>

#include "KivAnimation/basicanimationmanager.h"
#include "KivCommonDef/sharedlibrary.h"

namespace KivMemoryShare {

/// The scene that host and module share. The character scene group and the animation manager exist from the
/// start, the manager as an update callback of the group; both may be replaced. Pointers come back unowned.
///
/// Getters and setters are synchronised; what hangs under the group is changed only inside the scene gate.
class KIV_MEMORYSHARE_API SceneCfgShare
{
public:
    static SceneCfgShare* instance();

    SceneCfgShare(const SceneCfgShare&) = delete;
    SceneCfgShare& operator=(const SceneCfgShare&) = delete;

    osg::Group* getCharacterSceneNode() const;
    /// Null brings back a fresh group. The animation manager moves along as its update callback.
    void setCharacterSceneNode(osg::Group* group);

    KivAnimation::BasicAnimationManager* getBaseAnimationManager() const;
    /// Null brings back a fresh manager.
    void setBaseAnimationManager(KivAnimation::BasicAnimationManager* manager);

    /// Null until the host has set one; only watched, never kept alive.
    osgViewer::CompositeViewer* getCompositeViewer() const;
    void setCompositeViewer(osgViewer::CompositeViewer* viewer);

    /// Releases every scene object and starts afresh. To be called before the program ends: objects of the
    /// scene graph must not outlive the libraries that they come from.
    void reset();

private:
    SceneCfgShare();
    ~SceneCfgShare();

    struct Scene;
    std::unique_ptr<Scene> m_spScene;
};

}  // namespace KivMemoryShare
