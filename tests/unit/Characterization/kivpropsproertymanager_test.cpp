#include "KivCharacterization/Characterization/kivpropsproertymanager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <functional>
#include <future>
#include <stdexcept>
#include <string>
#include <vector>

#include "KivCharacterization/ipropspropertymodifynotify.h"
#include "tests/support/propsmanageraccess.h"

namespace {

using KivCharacterization::KivPropsProertyManager;

/// Writes down what it is asked and told, in a log that several observers may share.
class Observer : public IPropsPropertyModifyNotify
{
public:
    explicit Observer(std::string name = "X", std::vector<std::string>* log = nullptr)
        : m_name(std::move(name)), m_pLog(log ? log : &m_ownLog)
    {}

    bool PropsVectorsChanged(const osg::Vec3f& position, const osg::Vec3f& contactPoint) override
    {
        m_pLog->push_back(m_name + " vectors");
        m_position = position;
        m_contactPoint = contactPoint;
        return false;
    }
    bool PropsValuesChanged(const osg::Quat& rotation, const osg::Vec3d& scale) override
    {
        m_pLog->push_back(m_name + " values");
        m_rotation = rotation;
        m_scale = scale;
        return false;
    }
    bool PropsFlagChanged(bool flag) override
    {
        m_pLog->push_back(m_name + (flag ? " flag on" : " flag off"));
        if (m_bUnregisterWhenTold) {
            KivPropsProertyManager::Instance()->UnRegistNotify(this);
        }
        return false;
    }
    bool IsPropsConcerned(const std::string& propsName) override
    {
        m_pLog->push_back(m_name + " asked " + propsName);
        if (m_bUnregisterWhenAsked) {
            KivPropsProertyManager::Instance()->UnRegistNotify(this);
        }
        return propsName != m_notConcerned;
    }

    std::string m_notConcerned = "none";
    bool m_bUnregisterWhenTold = false;
    bool m_bUnregisterWhenAsked = false;
    osg::Vec3f m_position, m_contactPoint;
    osg::Quat m_rotation;
    osg::Vec3d m_scale;
    std::vector<std::string> m_ownLog;

private:
    std::string m_name;
    std::vector<std::string>* m_pLog;
};

class PropsChanges : public testing::Test
{
protected:
    void SetUp() override { KivPropsProertyManager::DestroyInstance(); }
    void TearDown() override { KivPropsProertyManager::DestroyInstance(); }

    static KivPropsProertyManager& manager() { return *KivPropsProertyManager::Instance(); }
};

TEST_F(PropsChanges, areAcceptedWithoutAnyObserver)
{
    EXPECT_TRUE(manager().PropsVectorsChanged("PropsBall", osg::Vec3f(), osg::Vec3f()));
    EXPECT_TRUE(manager().PropsValuesChanged("PropsBall", osg::Quat(), osg::Vec3d()));
    EXPECT_TRUE(manager().PropsFlagChanged("PropsBall", true));
}

TEST_F(PropsChanges, reachAnObserverOnceHoweverOftenItWasRegistered)
{
    Observer observer;
    EXPECT_TRUE(manager().RegistNotify(&observer));
    EXPECT_TRUE(manager().RegistNotify(&observer));
    manager().PropsFlagChanged("PropsBall", true);
    EXPECT_EQ(observer.m_ownLog, (std::vector<std::string>{"X asked PropsBall", "X flag on"}));

    EXPECT_TRUE(manager().UnRegistNotify(&observer));
    manager().PropsFlagChanged("PropsBall", false);
    EXPECT_EQ(observer.m_ownLog.size(), 2u);
    EXPECT_FALSE(manager().UnRegistNotify(&observer));
}

TEST_F(PropsChanges, keepANullObserverLikeAnyOther)
{
    EXPECT_TRUE(manager().RegistNotify(nullptr));
    EXPECT_TRUE(manager().UnRegistNotify(nullptr));
    EXPECT_FALSE(manager().UnRegistNotify(nullptr));
}

TEST_F(PropsChanges, passByANullObserver)
{
    Observer observer;
    manager().RegistNotify(nullptr);
    manager().RegistNotify(&observer);
    EXPECT_TRUE(manager().PropsFlagChanged("PropsBall", true));
    EXPECT_EQ(observer.m_ownLog.size(), 2u);
}

TEST_F(PropsChanges, askAndTellEachObserverBeforeTheNextInOrderOfRegistration)
{
    std::vector<std::string> log;
    Observer x("X", &log), y("Y", &log);
    manager().RegistNotify(&x);
    manager().RegistNotify(&y);
    manager().RegistNotify(&x);  // does not move it
    manager().PropsValuesChanged("PropsBall", osg::Quat(), osg::Vec3d());
    EXPECT_EQ(log,
              (std::vector<std::string>{"X asked PropsBall", "X values", "Y asked PropsBall", "Y values"}));
}

TEST_F(PropsChanges, passByAnObserverThatIsNotConcernedButAskItAboutOthers)
{
    Observer observer;
    observer.m_notConcerned = "PropsBall";
    manager().RegistNotify(&observer);
    EXPECT_TRUE(manager().PropsFlagChanged("PropsBall", true));
    manager().PropsFlagChanged("PropsStick", true);
    EXPECT_EQ(observer.m_ownLog,
              (std::vector<std::string>{"X asked PropsBall", "X asked PropsStick", "X flag on"}));
}

TEST_F(PropsChanges, carryThePositionAtAHundredthAndTheContactPointAsItIs)
{
    Observer observer;
    manager().RegistNotify(&observer);
    const osg::Vec3f reported(150.0f, 0.00005f, -250.0f);
    manager().PropsVectorsChanged("PropsBall", reported, reported);
    EXPECT_EQ(observer.m_position, osg::Vec3f(1.5f, 0.0f, -2.5f));
    EXPECT_EQ(observer.m_contactPoint, reported);
}

TEST_F(PropsChanges, snapComponentsUpToAMillionthToExactlyZero)
{
    Observer observer;
    manager().RegistNotify(&observer);
    // 1e-4 / 100 is a shade under 1e-6 in single precision; the next larger number is above it.
    manager().PropsVectorsChanged("PropsBall", osg::Vec3f(1e-4f, -1e-4f, 1.01e-4f), osg::Vec3f());
    EXPECT_EQ(observer.m_position.x(), 0.0f);
    EXPECT_EQ(observer.m_position.y(), 0.0f);
    EXPECT_GT(observer.m_position.z(), 0.0f);
}

TEST_F(PropsChanges, areDividedInSinglePrecisionBeforeTheySnap)
{
    Observer observer;
    manager().RegistNotify(&observer);
    // A hundredth of this number is above a millionth, but rounds down to it in single precision.
    const float reported = std::nextafter(1e-4f, 1.0f);
    ASSERT_GT(static_cast<double>(reported) / 100.0, 1e-6);
    manager().PropsVectorsChanged("PropsBall", osg::Vec3f(reported, 0, 0), osg::Vec3f());
    EXPECT_EQ(observer.m_position.x(), 0.0f);
}

TEST_F(PropsChanges, carryRotationAndScaleUntouched)
{
    Observer observer;
    manager().RegistNotify(&observer);
    manager().PropsValuesChanged("PropsBall", osg::Quat(0.1, 0.2, 0.3, 0.4), osg::Vec3d(1, 2, 3));
    EXPECT_EQ(observer.m_rotation, osg::Quat(0.1, 0.2, 0.3, 0.4));
    EXPECT_EQ(observer.m_scale, osg::Vec3d(1, 2, 3));
}

TEST_F(PropsChanges, surviveAnObserverThatUnregistersItselfWhenTold)
{
    std::vector<std::string> log;
    Observer first("A", &log), second("B", &log), third("C", &log);
    first.m_bUnregisterWhenTold = true;
    second.m_bUnregisterWhenTold = true;
    for (Observer* observer : {&first, &second, &third}) {
        manager().RegistNotify(observer);
    }
    manager().PropsFlagChanged("P", true);
    manager().PropsFlagChanged("P", false);
    EXPECT_EQ(log, (std::vector<std::string>{"A asked P", "A flag on", "B asked P", "B flag on", "C asked P",
                                             "C flag on", "C asked P", "C flag off"}));
}

TEST_F(PropsChanges, surviveAnObserverThatUnregistersItselfWhenAsked)
{
    std::vector<std::string> log;
    Observer first("A", &log), second("B", &log);
    first.m_bUnregisterWhenAsked = true;
    manager().RegistNotify(&first);
    manager().RegistNotify(&second);
    manager().PropsFlagChanged("P", true);
    manager().PropsFlagChanged("P", false);
    EXPECT_EQ(log, (std::vector<std::string>{"A asked P", "A flag on", "B asked P", "B flag on", "B asked P",
                                             "B flag off"}));
}

TEST_F(PropsChanges, passOnWhatAnObserverThrowsAndGoOnNextTime)
{
    class Thrower : public Observer
    {
    public:
        using Observer::Observer;
        bool PropsFlagChanged(bool flag) override
        {
            Observer::PropsFlagChanged(flag);
            throw std::runtime_error("the observer gave up");
        }
    };
    std::vector<std::string> log;
    Observer first("first", &log);
    Thrower second("second", &log);
    Observer third("third", &log);
    for (Observer* observer : {&first, static_cast<Observer*>(&second), &third}) {
        manager().RegistNotify(observer);
    }
    EXPECT_THROW(manager().PropsFlagChanged("Props", true), std::runtime_error);
    EXPECT_THAT(log, testing::ElementsAre("first asked Props", "first flag on", "second asked Props",
                                          "second flag on"));

    // The list is neither locked nor changed.
    EXPECT_TRUE(manager().UnRegistNotify(&second));
    log.clear();
    EXPECT_TRUE(manager().PropsFlagChanged("Props", false));
    EXPECT_THAT(log, testing::ElementsAre("first asked Props", "first flag off", "third asked Props",
                                          "third flag off"));
}

TEST_F(PropsChanges, travelThroughALink)
{
    Observer observer;
    manager().RegistNotify(&observer);
    KivManipulator::IPropsGeodePropertyNotify* link = manager().CreateProertyChangeLink();
    EXPECT_TRUE(link->PropsVectorsChanged("7#LeftProps", osg::Vec3f(100, 0, 0), osg::Vec3f(1, 2, 3)));
    EXPECT_TRUE(link->PropsValuesChanged("7#LeftProps", osg::Quat(), osg::Vec3d(1, 1, 1)));
    EXPECT_TRUE(link->PropsFlagChanged("7#LeftProps", true));
    EXPECT_EQ(observer.m_ownLog,
              (std::vector<std::string>{"X asked 7#LeftProps", "X vectors", "X asked 7#LeftProps", "X values",
                                        "X asked 7#LeftProps", "X flag on"}));
    EXPECT_EQ(observer.m_position, osg::Vec3f(1, 0, 0));
}

TEST_F(PropsChanges, areAcceptedByALinkWithoutAManager)
{
    KivPropsProertyManager::ProertyChangeLink link(nullptr);
    EXPECT_TRUE(link.PropsVectorsChanged("P", osg::Vec3f(), osg::Vec3f()));
    EXPECT_TRUE(link.PropsValuesChanged("P", osg::Quat(), osg::Vec3d()));
    EXPECT_TRUE(link.PropsFlagChanged("P", true));
}

TEST_F(PropsChanges, areForgottenWithTheManagerAndAFreshOneStartsEmpty)
{
    Observer observer;
    manager().RegistNotify(&observer);
    KivPropsProertyManager::DestroyInstance();
    manager().PropsFlagChanged("P", true);
    EXPECT_TRUE(observer.m_ownLog.empty());
    EXPECT_FALSE(manager().UnRegistNotify(&observer));
}

/// Whether something waits while another thread holds the manager's mutex, and goes on afterwards.
bool waitsForTheMutex(const std::function<void()>& operation)
{
    OpenThreads::Mutex& mutex = KivCharacterization::KivPropsProertyManagerAccess::mutex();
    mutex.lock();
    std::future<void> done = std::async(std::launch::async, operation);
    const bool waited = done.wait_for(std::chrono::milliseconds(50)) == std::future_status::timeout;
    mutex.unlock();
    done.get();
    return waited;
}

TEST_F(PropsChanges, changeTheListsUnderTheMutexAlone)
{
    Observer observer;
    EXPECT_TRUE(waitsForTheMutex([&] { manager().RegistNotify(&observer); }));
    EXPECT_TRUE(waitsForTheMutex([&] { manager().UnRegistNotify(&observer); }));
    EXPECT_TRUE(waitsForTheMutex([&] { manager().CreateProertyChangeLink(); }));
}

TEST_F(PropsChanges, areDeliveredWithoutTheMutex)
{
    Observer observer;
    manager().RegistNotify(&observer);
    EXPECT_FALSE(waitsForTheMutex([&] { manager().PropsFlagChanged("PropsBall", true); }));
    EXPECT_FALSE(observer.m_ownLog.empty());
}

TEST_F(PropsChanges, giveEveryPropsALinkOfItsOwn)
{
    EXPECT_NE(manager().CreateProertyChangeLink(), manager().CreateProertyChangeLink());
}

}  // namespace
