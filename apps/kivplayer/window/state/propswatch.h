#pragma once

#include <osg/Quat>
#include <osg/Vec3d>
#include <osg/observer_ptr>

#include <map>
#include <string>
#include <vector>

#include "KivCharacterization/ipropspropertymodifynotify.h"
#include "KivManipulator/propsgeode.h"
#include "apps/kivplayer/session/session.h"

namespace KivPlayer {

/// A props as the panel shows it: in the frame of the bone that carries it, scene units.
struct WatchedProps
{
    unsigned actor = 0;
    std::string fullName;  ///< with the actor's qualifier
    std::string name;
    osg::observer_ptr<KivManipulator::PropsGeode> geode;
    osg::Vec3d position;
    osg::Vec3d contactPoint;
    osg::Quat rotation;
    osg::Vec3d scale{1, 1, 1};
    bool dragged = false;
    bool draggerShown = false;
    bool contactDraggerShown = false;
    unsigned long long changes = 0;  ///< that were reported since it was found
    unsigned long long drags = 0;    ///< that have ended

    osg::Matrixd matrix() const;
    osg::Vec3d angles() const;  ///< degrees about x, then y, then z
    void turnTo(const osg::Vec3d& degrees);
};

/// Observes the props of all actors: what the module reports about them arrives here, on the thread of the
/// frame loop. Register it with the module for as long as it lives.
class PropsWatch : public IPropsPropertyModifyNotify
{
public:
    /// Looks for the props of the actors that are there now. Between frames.
    void setActors(const std::map<unsigned, LoadedActor>& actors);

    std::vector<WatchedProps>& all() { return m_props; }
    const std::vector<WatchedProps>& all() const { return m_props; }
    bool isDragging() const;

    bool PropsVectorsChanged(const osg::Vec3f& position, const osg::Vec3f& contactPoint) override;
    bool PropsValuesChanged(const osg::Quat& rotation, const osg::Vec3d& scale) override;
    bool PropsFlagChanged(bool flag) override;
    bool IsPropsConcerned(const std::string& propsName) override;

private:
    WatchedProps* m_pConcerned = nullptr;  ///< what the next report is about
    std::vector<WatchedProps> m_props;
};

}  // namespace KivPlayer
