#include <osg/Image>

#include <cmath>
#include <optional>

#include "KivAnimation/animation.h"
#include "KivAnimation/basicanimationmanager.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "apps/kivplayer/output/offscreen.h"
#include "apps/kivplayer/session/framepublisher.h"
#include "apps/kivplayer/stage/framing.h"
#include "apps/kivplayer/stage/stage.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"

namespace {

using KivMemoryShare::SceneCfgShare;
using KivPlayer::FramePublisher;
using KivPlayer::Offscreen;
using KivPlayer::Session;
using KivPlayer::Stage;

/// The sample walk before and after the contact of a joint that lies inside the body is painted, from two
/// sides.
class PaintedContact : public PlayerFixture
{
protected:
    static constexpr int kWidth = 360;
    static constexpr int kHeight = 480;
    static constexpr double kMoment = 0.8;  // seconds

    void SetUp() override
    {
        PlayerFixture::SetUp();
        m_session.emplace(m_console);
        ASSERT_TRUE(m_session->start(KivTestSupport::kRuntimeRoot)) << m_said.str();
        ASSERT_TRUE(m_session->load(0, sample("walk"), "Ann")) << m_said.str();
        m_publisher.setActors(m_session->actors());
        m_stage.emplace(SceneCfgShare::instance()->getCharacterSceneNode());
        m_publisher.show(kMoment);
        m_stage->setUp(KivPlayer::boxWithGround(m_publisher.positionsNow()));
        m_offscreen.view().setSceneData(m_stage->root());
    }
    void TearDown() override
    {
        m_offscreen.view().setSceneData(nullptr);
        m_stage.reset();
        m_session.reset();
        PlayerFixture::TearDown();
    }

    static void paint(const std::string& joint)
    {
        for (KivAnimation::Animation* animation :
             SceneCfgShare::instance()->getBaseAnimationManager()->animations())
            ASSERT_TRUE(animation->ChangeJointContactColor(joint, osg::Vec4f(1, 0, 0, 1)));
    }

    osg::Vec3d placeOf(const std::string& name) const
    {
        for (const auto& joint : m_session->actors().at(0).dressed.joints())
            if (joint.name == name)
                return joint.bone->getMatrixInSkeletonSpace().getTrans();
        ADD_FAILURE() << "no joint " << name;
        return {};
    }

    osg::ref_ptr<osg::Image> pictureFrom(double side)
    {
        m_publisher.show(kMoment);
        const osg::Vec3d middle = placeOf("Hips");
        m_camera = m_offscreen.view().getCamera();
        m_camera->setViewMatrixAsLookAt(middle + osg::Vec3d(std::cos(side), std::sin(side), 0.15) * 420.0,
                                        middle, osg::Vec3d(0, 0, 1));
        return m_offscreen.frame(kMoment);
    }

    /// Where a point of the scene lies in the picture, and how many pixels a centimetre has there.
    osg::Vec3d inPicture(const osg::Vec3d& place) const
    {
        const osg::Vec3d eye = place * m_camera->getViewMatrix();
        const osg::Matrixd projection = m_camera->getProjectionMatrix();
        const osg::Vec3d clip = eye * projection;
        return {0.5 * (clip.x() + 1.0) * kWidth, 0.5 * (clip.y() + 1.0) * kHeight,
                0.5 * kHeight * projection(1, 1) / -eye.z()};
    }

    /// Compares two pictures: how many pixels of the disc of a joint's marker turned red; others must not
    /// change.
    static int reddened(const osg::Image& before, const osg::Image& after, const osg::Vec3d& disc)
    {
        constexpr double kMarkerRadius = 2.5;
        int red = 0;
        int stray = 0;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const unsigned char* was = before.data(static_cast<unsigned>(x), static_cast<unsigned>(y));
                const unsigned char* is = after.data(static_cast<unsigned>(x), static_cast<unsigned>(y));
                const double away = std::hypot(x + 0.5 - disc.x(), y + 0.5 - disc.y());
                if (away <= kMarkerRadius * disc.z() + 1.5)
                    red += is[0] - is[1] > was[0] - was[1] + 25 ? 1 : 0;
                else
                    stray += is[0] != was[0] || is[1] != was[1] || is[2] != was[2] ? 1 : 0;
            }
        }
        EXPECT_EQ(stray, 0) << "pixels beside the marker have changed";
        return red;
    }

    std::optional<Session> m_session;
    FramePublisher m_publisher{false};
    std::optional<Stage> m_stage;
    Offscreen m_offscreen{kWidth, kHeight, 2};
    osg::Camera* m_camera = nullptr;
};

TEST_F(PaintedContact, isSeenThroughTheBodyFromEverySideAndThrowsNoShadow)
{
    for (const char* joint : {"Hips", "LeftFoot", "LeftArm", "LeftHandMiddle3"}) {
        for (const double side : {-osg::PI_2, 0.0, osg::PI_2}) {
            SCOPED_TRACE(std::string(joint) + " from " + std::to_string(side));
            const osg::ref_ptr<osg::Image> before = pictureFrom(side);
            paint(joint);
            const osg::ref_ptr<osg::Image> after = pictureFrom(side);
            const osg::Vec3d disc = inPicture(placeOf(joint));
            const double whole = osg::PI * std::pow(2.5 * disc.z(), 2.0);
            EXPECT_GT(reddened(*before, *after, disc), 0.7 * whole);
            m_session->load(0, sample("walk"), "Ann");
            m_publisher.setActors(m_session->actors());
        }
    }
}

TEST_F(PaintedContact, isSeenOnAnActorThatIsLoadedAfterwards)
{
    const osg::ref_ptr<osg::Image> before = pictureFrom(0.0);
    KivRenderState::KivRenderStateManager::instance()->setBVHContactColor("Hips", {{0, 0, 0}, 1, 0, 0});
    ASSERT_TRUE(m_session->load(0, sample("walk"), "Ann")) << m_said.str();
    m_publisher.setActors(m_session->actors());
    const osg::ref_ptr<osg::Image> after = pictureFrom(0.0);
    const osg::Vec3d disc = inPicture(placeOf("Hips"));
    EXPECT_GT(reddened(*before, *after, disc), 0.7 * osg::PI * std::pow(2.5 * disc.z(), 2.0));
}

}  // namespace
