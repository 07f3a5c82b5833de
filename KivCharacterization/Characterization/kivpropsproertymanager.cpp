#include "KivCharacterization/Characterization/kivpropsproertymanager.h"

#include <OpenThreads/ScopedLock>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "KivCharacterization/ipropspropertymodifynotify.h"

namespace KivCharacterization {

namespace {

using Lock = OpenThreads::ScopedLock<OpenThreads::Mutex>;

constexpr float kObserverScale = 100.0f;
constexpr double kSnapToZero = 1e-6;

float toObserverScale(float component)
{
    double scaled = component / kObserverScale;
    if (std::fabs(scaled) <= kSnapToZero) {
        scaled = 0.0;
    }
    return static_cast<float>(scaled);
}

}  // namespace

KivPropsProertyManager* KivPropsProertyManager::m_pIns = nullptr;

KivPropsProertyManager* KivPropsProertyManager::Instance()
{
    if (!m_pIns) {
        m_pIns = new KivPropsProertyManager;
    }
    return m_pIns;
}

void KivPropsProertyManager::DestroyInstance()
{
    delete m_pIns;
    m_pIns = nullptr;
}

KivPropsProertyManager::KivPropsProertyManager() = default;

KivPropsProertyManager::~KivPropsProertyManager()
{
    m_listObservers.clear();
    for (ProertyChangeLink* link : m_listLinks) {
        delete link;
    }
    m_listLinks.clear();
}

bool KivPropsProertyManager::RegistNotify(IPropsPropertyModifyNotify* observer)
{
    const Lock lock(m_mutex);
    if (std::find(m_listObservers.begin(), m_listObservers.end(), observer) == m_listObservers.end()) {
        m_listObservers.push_back(observer);
    }
    return true;
}

bool KivPropsProertyManager::UnRegistNotify(IPropsPropertyModifyNotify* observer)
{
    const Lock lock(m_mutex);
    const auto found = std::find(m_listObservers.begin(), m_listObservers.end(), observer);
    if (found == m_listObservers.end()) {
        return false;
    }
    m_listObservers.erase(found);
    return true;
}

KivPropsProertyManager::ProertyChangeLink* KivPropsProertyManager::CreateProertyChangeLink()
{
    const Lock lock(m_mutex);
    auto link = std::make_unique<ProertyChangeLink>(this);
    m_listLinks.push_back(link.get());
    return link.release();
}

template <typename Delivery>
void KivPropsProertyManager::deliver(const std::string& propsName, Delivery&& delivery)
{
    for (auto next = m_listObservers.begin(); next != m_listObservers.end();) {
        // Stepping on first keeps the walk whole when the observer unregisters itself.
        IPropsPropertyModifyNotify* const observer = *next++;
        if (observer && observer->IsPropsConcerned(propsName)) {
            delivery(*observer);
        }
    }
}

bool KivPropsProertyManager::PropsVectorsChanged(std::string propsName, const osg::Vec3f& position,
                                                 const osg::Vec3f& contactPoint)
{
    const osg::Vec3f scaledPosition(toObserverScale(position.x()), toObserverScale(position.y()),
                                    toObserverScale(position.z()));
    const osg::Vec3f sameContactPoint(contactPoint);
    deliver(propsName, [&](IPropsPropertyModifyNotify& observer) {
        observer.PropsVectorsChanged(scaledPosition, sameContactPoint);
    });
    return true;
}

bool KivPropsProertyManager::PropsValuesChanged(std::string propsName, const osg::Quat& rotation,
                                                const osg::Vec3d& scale)
{
    deliver(propsName,
            [&](IPropsPropertyModifyNotify& observer) { observer.PropsValuesChanged(rotation, scale); });
    return true;
}

bool KivPropsProertyManager::PropsFlagChanged(std::string propsName, bool flag)
{
    deliver(propsName, [&](IPropsPropertyModifyNotify& observer) { observer.PropsFlagChanged(flag); });
    return true;
}

bool KivPropsProertyManager::ProertyChangeLink::PropsVectorsChanged(std::string propsName,
                                                                    const osg::Vec3f& position,
                                                                    const osg::Vec3f& contactPoint)
{
    return !m_pManager || m_pManager->PropsVectorsChanged(std::move(propsName), position, contactPoint);
}

bool KivPropsProertyManager::ProertyChangeLink::PropsValuesChanged(std::string propsName,
                                                                   const osg::Quat& rotation,
                                                                   const osg::Vec3d& scale)
{
    return !m_pManager || m_pManager->PropsValuesChanged(std::move(propsName), rotation, scale);
}

bool KivPropsProertyManager::ProertyChangeLink::PropsFlagChanged(std::string propsName, bool flag)
{
    return !m_pManager || m_pManager->PropsFlagChanged(std::move(propsName), flag);
}

}  // namespace KivCharacterization
