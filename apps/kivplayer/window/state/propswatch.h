#pragma once

#include <osg/Node>
#include <osg/observer_ptr>

#include <map>
#include <string>
#include <vector>

#include "KivCharacterization/ipropspropertymodifynotify.h"
#include "KivManipulator/propsgeode.h"
#include "apps/kivplayer/window/state/propstate.h"

namespace KivPlayer {

/// Observes the props of all actors: what the module reports about them arrives here, on the thread of the
/// frame loop. Register it with the module for as long as it lives.
class PropsWatch : public IPropsPropertyModifyNotify
{
public:
    struct Entry
    {
        PropState state;
        osg::observer_ptr<KivManipulator::PropsGeode> geode;
    };

    /// Looks for the props below the roots of the actors that are there now. Between frames.
    void setActors(const std::map<unsigned, osg::Node*>& roots);
    /// Asks the props which of their draggers are shown. Between frames.
    void readDraggers();
    /// Ends every drag as it is, for a window that loses the keyboard.
    void finishDrags();

    const std::vector<Entry>& all() const { return m_props; }
    /// @return null where there is no such prop.
    PropState* find(const std::string& fullName);
    bool isDragging() const;
    /// For the panels, in the same order.
    void copyTo(std::vector<PropState>& states) const;

    bool PropsVectorsChanged(const osg::Vec3f& position, const osg::Vec3f& contactPoint) override;
    bool PropsValuesChanged(const osg::Quat& rotation, const osg::Vec3d& scale) override;
    bool PropsFlagChanged(bool flag) override;
    bool IsPropsConcerned(const std::string& propsName) override;

private:
    PropState* m_pConcerned = nullptr;  ///< what the next report is about
    std::vector<Entry> m_props;
};

}  // namespace KivPlayer
