#pragma once

#include <OpenThreads/Mutex>
#include <osg/Quat>
#include <osg/Vec3d>
#include <osg/Vec3f>

#include <list>
#include <string>

#include "KivManipulator/ipropsgeodepropertynotify.h"

class IPropsPropertyModifyNotify;

namespace KivCharacterization {

/// Carries what users do to props from the props' draggers to the host's observers.
///
/// The mutex is held only while a list changes. Deliveries walk the observers without it, on whatever
/// thread reports the change: nothing guards them against a registration on another thread. An observer may
/// unregister itself from inside a delivery; unregistering another one there is not supported.
class KivPropsProertyManager  // frozen
{
public:
    /// What a prop is given to report its changes to. Belongs to the manager that made it.
    class ProertyChangeLink : public KivManipulator::IPropsGeodePropertyNotify  // frozen
    {
    public:
        explicit ProertyChangeLink(KivPropsProertyManager* manager) : m_pManager(manager) {}

        bool PropsVectorsChanged(std::string propsName, const osg::Vec3f& position,
                                 const osg::Vec3f& contactPoint) override;
        bool PropsValuesChanged(std::string propsName, const osg::Quat& rotation,
                                const osg::Vec3d& scale) override;
        bool PropsFlagChanged(std::string propsName, bool flag) override;

    private:
        KivPropsProertyManager* m_pManager;
    };

    /// The one manager, made by the first call; that call must not race with another.
    static KivPropsProertyManager* Instance();
    /// Destroys the manager with all its links; a later Instance() makes a fresh one. No prop may report
    /// afterwards.
    static void DestroyInstance();

    KivPropsProertyManager(const KivPropsProertyManager&) = delete;
    KivPropsProertyManager& operator=(const KivPropsProertyManager&) = delete;

    /// Observers are not told and not deleted; links are deleted.
    virtual ~KivPropsProertyManager();

    /// Each delivery asks every observer in the order of registration whether it is concerned and tells it
    /// if so. Always true. The position reaches observers divided by 100, near zero as an exact 0; the
    /// contact point as it is.
    virtual bool PropsVectorsChanged(std::string propsName, const osg::Vec3f& position,
                                     const osg::Vec3f& contactPoint);
    virtual bool PropsValuesChanged(std::string propsName, const osg::Quat& rotation,
                                    const osg::Vec3d& scale);
    virtual bool PropsFlagChanged(std::string propsName, bool flag);

    /// Appends an observer that is not there yet. Always true.
    bool RegistNotify(IPropsPropertyModifyNotify* observer);  // frozen
    /// @return whether the observer was registered.
    bool UnRegistNotify(IPropsPropertyModifyNotify* observer);  // frozen

    /// Links live until the manager is destroyed, however early their prop dies.
    ProertyChangeLink* CreateProertyChangeLink();  // frozen

private:
    KivPropsProertyManager();

    template <typename Delivery>
    void deliver(const std::string& propsName, Delivery&& delivery);

    std::list<IPropsPropertyModifyNotify*> m_listObservers;
    std::list<ProertyChangeLink*> m_listLinks;
    OpenThreads::Mutex m_mutex;

    static KivPropsProertyManager* m_pIns;

    friend struct KivPropsProertyManagerAccess;  // the module's own tests hold the mutex
};

}  // namespace KivCharacterization
