#include "apps/kivplayer/stage/skeletonoverlay.h"

#include <gtest/gtest.h>
#include <osg/Geometry>
#include <osg/ShapeDrawable>
#include <osgUtil/UpdateVisitor>

#include <cmath>
#include <string>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"
#include "apps/kivplayer/output/offscreen.h"
#include "apps/kivplayer/stage/stage.h"

namespace {

using KivAnimation::Bone;
using KivPlayer::SkeletonOverlay;

osg::ref_ptr<Bone> boneAt(const std::string& name, const osg::Vec3d& place)
{
    osg::ref_ptr<Bone> bone = new Bone(name);
    bone->setMatrixInSkeletonSpace(osg::Matrixd::translate(place));
    return bone;
}

/// A left leg of two joints and an end, inside a ball that hides it.
class SkeletonOverlayTest : public testing::Test
{
protected:
    static constexpr int kSide = 160;

    void SetUp() override
    {
        m_spKnee = boneAt("7#LeftLeg", {0, 0, 50});
        osg::ref_ptr<Bone> hip = boneAt("7#LeftUpLeg", {0, 0, 90});
        hip->addChild(m_spKnee);
        m_spKnee->addChild(boneAt("7#LeftLegEnd", {0, 0, 10}));
        osg::ref_ptr<KivAnimation::Skeleton> skeleton = new KivAnimation::Skeleton;
        skeleton->addChild(hip);
        m_spActor->addChild(skeleton);
        m_spFigures->addChild(m_spActor);
    }

    const osg::Geometry& shownBy(SkeletonOverlay& overlay)
    {
        osgUtil::UpdateVisitor update;
        overlay.accept(update);
        return *overlay.getChild(0)->asGroup()->getChild(0)->asGeometry();
    }

    osg::ref_ptr<osg::Image> picture(bool shown)
    {
        osg::ref_ptr<osg::ShapeDrawable> body =
            new osg::ShapeDrawable(new osg::Sphere(osg::Vec3(0, 0, 50), 50.0f));
        m_spActor->addChild(body);
        KivPlayer::Offscreen offscreen(kSide, kSide, 2);
        KivPlayer::Stage stage(m_spFigures);
        stage.showSkeleton(shown);
        offscreen.view().setSceneData(stage.root());
        offscreen.view().getCamera()->setViewMatrixAsLookAt(osg::Vec3d(0, -300, 50), osg::Vec3d(0, 0, 50),
                                                            osg::Vec3d(0, 0, 1));
        return offscreen.frame(0.0);
    }

    static int bluePixels(const osg::Image& image)
    {
        int blue = 0;
        for (unsigned y = 0; y < kSide; ++y)
            for (unsigned x = 0; x < kSide; ++x)
                blue += image.data(x, y)[2] > image.data(x, y)[0] + 40 ? 1 : 0;
        return blue;
    }

    osg::ref_ptr<Bone> m_spKnee;
    osg::ref_ptr<osg::Group> m_spActor = new osg::Group;
    osg::ref_ptr<osg::Group> m_spFigures = new osg::Group;
};

TEST_F(SkeletonOverlayTest, isOffAtFirst)
{
    const osg::ref_ptr<SkeletonOverlay> overlay = new SkeletonOverlay(m_spFigures);
    EXPECT_FALSE(overlay->isShown());
    EXPECT_EQ(shownBy(*overlay).getVertexArray()->getNumElements(), 0u) << "and costs nothing";
}

TEST_F(SkeletonOverlayTest, alwaysDrawsFiguresThatHaveNoBody)
{
    const osg::ref_ptr<SkeletonOverlay> overlay = new SkeletonOverlay(m_spFigures);
    overlay->setBare({new osg::Group});
    EXPECT_EQ(shownBy(*overlay).getVertexArray()->getNumElements(), 0u) << "one that is not in the scene";
    overlay->setBare({m_spFigures->getChild(0)->asGroup()});
    EXPECT_TRUE(overlay->isShown());
    EXPECT_EQ(shownBy(*overlay).getPrimitiveSet(0)->getNumIndices(), 3u * (2 * 8 + 2 * 32));
    overlay->setBare({});
    EXPECT_FALSE(overlay->isShown());
}

TEST_F(SkeletonOverlayTest, drawsABoneToEveryJointAndDotsOnAllButEnds)
{
    const osg::ref_ptr<SkeletonOverlay> overlay = new SkeletonOverlay(m_spFigures);
    overlay->setShown(true);
    EXPECT_EQ(shownBy(*overlay).getPrimitiveSet(0)->getNumIndices(), 3u * (2 * 8 + 2 * 32));
}

TEST_F(SkeletonOverlayTest, goesWithThePoseAndWithWhatStandsAboveTheSkeleton)
{
    osg::ref_ptr<osg::MatrixTransform> moved = new osg::MatrixTransform(osg::Matrixd::translate(1000, 0, 0));
    m_spFigures->removeChild(m_spActor);
    moved->addChild(m_spActor);
    m_spFigures->addChild(moved);
    const osg::ref_ptr<SkeletonOverlay> overlay = new SkeletonOverlay(m_spFigures);
    overlay->setShown(true);
    EXPECT_LT(shownBy(*overlay).getBoundingBox().yMax(), 10.0f);
    EXPECT_GT(shownBy(*overlay).getBoundingBox().xMin(), 990.0f);
    m_spKnee->setMatrixInSkeletonSpace(osg::Matrixd::translate(0, 40, 50));
    EXPECT_GT(shownBy(*overlay).getBoundingBox().yMax(), 40.0f);
}

TEST_F(SkeletonOverlayTest, leavesHiddenFiguresOut)
{
    const osg::ref_ptr<SkeletonOverlay> overlay = new SkeletonOverlay(m_spFigures);
    overlay->setShown(true);
    m_spActor->setNodeMask(0);
    EXPECT_EQ(shownBy(*overlay).getVertexArray()->getNumElements(), 0u);
}

TEST_F(SkeletonOverlayTest, isSeenThroughTheBodyInTheColourOfItsSide)
{
    const osg::ref_ptr<osg::Image> with = picture(true);
    const osg::ref_ptr<osg::Image> without = picture(false);
    EXPECT_GT(bluePixels(*with), 40) << "left is blue";
    EXPECT_EQ(bluePixels(*without), 0);
    EXPECT_EQ(*with->data(5, kSide / 2), *without->data(5, kSide / 2)) << "beside it nothing changes";
}

}  // namespace
