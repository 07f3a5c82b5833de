#include "KivMemoryShare/scenecfgshare.h"

#include <gtest/gtest.h>

#include <osg/observer_ptr>

namespace {

using KivAnimation::BasicAnimationManager;
using KivMemoryShare::SceneCfgShare;

class SharedScene : public testing::Test
{
protected:
    void SetUp() override { m_share.reset(); }
    void TearDown() override { m_share.reset(); }

    SceneCfgShare& m_share = *SceneCfgShare::instance();
};

TEST_F(SharedScene, hasAGroupAndAManagerFromTheStart)
{
    ASSERT_NE(m_share.getCharacterSceneNode(), nullptr);
    ASSERT_NE(m_share.getBaseAnimationManager(), nullptr);
    EXPECT_EQ(m_share.getCharacterSceneNode()->getUpdateCallback(), m_share.getBaseAnimationManager());
    EXPECT_EQ(m_share.getCompositeViewer(), nullptr);
}

TEST_F(SharedScene, bringsBackAFreshGroupForNull)
{
    const osg::ref_ptr<osg::Group> first = m_share.getCharacterSceneNode();
    m_share.setCharacterSceneNode(nullptr);
    ASSERT_NE(m_share.getCharacterSceneNode(), nullptr);
    EXPECT_NE(m_share.getCharacterSceneNode(), first);
    EXPECT_EQ(m_share.getCharacterSceneNode()->getUpdateCallback(), m_share.getBaseAnimationManager());
}

TEST_F(SharedScene, takesTheManagerAlongToAnotherGroup)
{
    const osg::ref_ptr<osg::Group> first = m_share.getCharacterSceneNode();
    const osg::ref_ptr<osg::Group> second = new osg::Group;
    m_share.setCharacterSceneNode(second);
    EXPECT_EQ(m_share.getCharacterSceneNode(), second);
    EXPECT_EQ(second->getUpdateCallback(), m_share.getBaseAnimationManager());
    EXPECT_EQ(first->getUpdateCallback(), nullptr);
}

TEST_F(SharedScene, leavesOtherCallbacksOfTheGroupAlone)
{
    const osg::ref_ptr<osg::NodeCallback> own = new osg::NodeCallback;
    const osg::ref_ptr<osg::Group> group = new osg::Group;
    group->setUpdateCallback(own);
    m_share.setCharacterSceneNode(group);
    m_share.setCharacterSceneNode(nullptr);
    EXPECT_EQ(group->getUpdateCallback(), own);
    EXPECT_EQ(own->getNestedCallback(), nullptr);
}

TEST_F(SharedScene, carriesTheManagerOnceWhenTheSameGroupIsSetAgain)
{
    m_share.setCharacterSceneNode(m_share.getCharacterSceneNode());
    m_share.setBaseAnimationManager(m_share.getBaseAnimationManager());
    const osg::Callback* callback = m_share.getCharacterSceneNode()->getUpdateCallback();
    EXPECT_EQ(callback, m_share.getBaseAnimationManager());
    EXPECT_EQ(callback->getNestedCallback(), nullptr);
}

TEST_F(SharedScene, replacesItsManager)
{
    const osg::observer_ptr<BasicAnimationManager> first = m_share.getBaseAnimationManager();
    const osg::ref_ptr<BasicAnimationManager> second = new BasicAnimationManager;
    m_share.setBaseAnimationManager(second);
    EXPECT_EQ(m_share.getBaseAnimationManager(), second);
    EXPECT_EQ(m_share.getCharacterSceneNode()->getUpdateCallback(), second);
    EXPECT_FALSE(first.valid());
    m_share.setBaseAnimationManager(nullptr);
    EXPECT_NE(m_share.getBaseAnimationManager(), nullptr);
    EXPECT_NE(m_share.getBaseAnimationManager(), second);
}

TEST_F(SharedScene, watchesTheViewerWithoutKeepingIt)
{
    osg::ref_ptr<osgViewer::CompositeViewer> viewer = new osgViewer::CompositeViewer;
    m_share.setCompositeViewer(viewer);
    EXPECT_EQ(m_share.getCompositeViewer(), viewer);
    EXPECT_EQ(viewer->referenceCount(), 1);
    viewer = nullptr;
    EXPECT_EQ(m_share.getCompositeViewer(), nullptr);
}

TEST_F(SharedScene, releasesEverySceneObjectOnReset)
{
    const osg::observer_ptr<osg::Group> group = m_share.getCharacterSceneNode();
    const osg::observer_ptr<BasicAnimationManager> manager = m_share.getBaseAnimationManager();
    const osg::ref_ptr<osgViewer::CompositeViewer> viewer = new osgViewer::CompositeViewer;
    m_share.setCompositeViewer(viewer);
    m_share.reset();
    EXPECT_FALSE(group.valid());
    EXPECT_FALSE(manager.valid());
    EXPECT_EQ(m_share.getCompositeViewer(), nullptr);
    EXPECT_NE(m_share.getCharacterSceneNode(), nullptr);
}

/// A scene object that asks the shared scene in its last moment.
class LastWords : public osg::Referenced
{
protected:
    ~LastWords() override { SceneCfgShare::instance()->getCharacterSceneNode(); }
};

TEST_F(SharedScene, mayBeAskedByWhatDiesInItsReset)
{
    m_share.getCharacterSceneNode()->setUserData(new LastWords);
    m_share.reset();
    m_share.getCharacterSceneNode()->setUserData(new LastWords);
    m_share.setCharacterSceneNode(nullptr);
    EXPECT_NE(m_share.getCharacterSceneNode(), nullptr);
}

}  // namespace
