#include <osgUtil/UpdateVisitor>

#include "KivMemoryShare/actorframemanager.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "apps/kivplayer/session/framepublisher.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"
#include "tests/support/countedallocations.h"

namespace {

using namespace KivPlayer;
using KivTestSupport::allocationsOf;

/// Two dressed actors with names, centre of mass and contacts, played frame by frame as the player does it.
class SteadyFrame : public PlayerFixture
{
protected:
    void SetUp() override
    {
        PlayerFixture::SetUp();
        m_session.emplace(m_console);
        ASSERT_TRUE(m_session->start(KivTestSupport::kRuntimeRoot));
        ASSERT_TRUE(m_session->load(1, sample("pass_left"), "Ann"));
        ASSERT_TRUE(m_session->load(2, sample("juggle"), "Bob"));
        KivRenderState::KivRenderStateManager::instance()->setCenterOfMassShow(true);
        m_publisher.setActors(m_session->actors());
        // The first frames make what the frames show.
        playFrames(0, 30);
    }

    void playFrames(int first, int count)
    {
        osg::Group& scene = *KivMemoryShare::SceneCfgShare::instance()->getCharacterSceneNode();
        for (int frame = first; frame < first + count; ++frame) {
            m_publisher.show(frame / 50.0);
            scene.accept(*m_visitor);
        }
    }

    std::optional<Session> m_session;
    FramePublisher m_publisher{true};
    osg::ref_ptr<osgUtil::UpdateVisitor> m_visitor = new osgUtil::UpdateVisitor;
};

TEST_F(SteadyFrame, allocatesNothing)
{
    EXPECT_EQ(allocationsOf([this] { playFrames(30, 100); }), 0);
}

TEST_F(SteadyFrame, isOneInWhichAllocationsOfAnyPartAreSeen)
{
    EXPECT_GT(allocationsOf([this] { m_publisher.setActors(m_session->actors()); }), 0) << "of the player";
    EXPECT_GT(allocationsOf([this] { m_session->rename(1, "Another name"); }), 0) << "of the module";
    const KivCommonDef::KIV_STICKCONTACT contacts[30] = {};
    KivMemoryShare::ActorFrameManager::Ins()->WriteActorStickContact(1, contacts, 30);
    osg::Group& scene = *KivMemoryShare::SceneCfgShare::instance()->getCharacterSceneNode();
    EXPECT_GT(allocationsOf([&] { scene.accept(*m_visitor); }), 0) << "of an overlay that grows";
}

TEST_F(SteadyFrame, isFollowedByTakingOverWhoeverIsThereWithoutCopyingWhatIsKnownOfThem)
{
    const auto takingOver = [this] { m_publisher.setActors(m_session->actors()); };
    const auto ofTwo = allocationsOf(takingOver);
    for (unsigned index = 3; index < 8; ++index)
        ASSERT_TRUE(m_session->load(index, sample("wave"), "Cid"));
    takingOver();
    EXPECT_EQ(allocationsOf(takingOver), ofTwo) << "of seven";
}

}  // namespace
