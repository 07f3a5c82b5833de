#include "apps/kivplayer/window/state/propswatch.h"

#include <gtest/gtest.h>
#include <osg/Group>

using namespace KivPlayer;

namespace {

/// A figure whose bone carries a prop.
struct Figure
{
    explicit Figure(const std::string& bone)
    {
        root->addChild(hand);
        hand->setName(bone);
        hand->addChild(prop);
        geode = new KivManipulator::PropsGeode("0", prop, osg::Vec3f(), nullptr);
        geode->SetInitalBoneAndMatrix(hand, osg::Matrixd(), osg::Matrixd());
        hand->addChild(geode);
    }

    osg::ref_ptr<osg::Group> root = new osg::Group;
    osg::ref_ptr<osg::MatrixTransform> hand = new osg::MatrixTransform;
    osg::ref_ptr<osg::MatrixTransform> prop = new osg::MatrixTransform;
    osg::ref_ptr<KivManipulator::PropsGeode> geode;
};

}  // namespace

TEST(PropsWatch, isConcernedWithNothingButItsProps)
{
    const Figure figure("0#LeftProps");
    PropsWatch watch;
    EXPECT_FALSE(watch.IsPropsConcerned("0#LeftProps"));
    watch.setActors({{0, figure.root}});
    EXPECT_TRUE(watch.IsPropsConcerned("0#LeftProps"));
    EXPECT_FALSE(watch.IsPropsConcerned("LeftProps"));
    EXPECT_EQ(watch.find("1#LeftProps"), nullptr);
    EXPECT_FALSE(watch.isDragging());
}

TEST(PropsWatch, findsThePropsOfAllActorsAsTheyStand)
{
    const Figure first("0#LeftProps");
    const Figure second("1#RightProps");
    second.prop->setMatrix(osg::Matrixd::translate(1, 2, 3));
    PropsWatch watch;
    watch.setActors({{0, first.root}, {1, second.root}});
    std::vector<PropState> props;
    watch.copyTo(props);
    ASSERT_EQ(props.size(), 2u);
    EXPECT_EQ(props[0].fullName, "0#LeftProps");
    EXPECT_EQ(props[0].name, "LeftProps");
    EXPECT_EQ(props[1].actor, 1u);
    EXPECT_EQ(props[1].position, osg::Vec3d(1, 2, 3));
}

TEST(PropsWatch, keepsWhatItIsToldInSceneUnits)
{
    const Figure figure("0#LeftProps");
    PropsWatch watch;
    watch.setActors({{0, figure.root}});
    ASSERT_TRUE(watch.IsPropsConcerned("0#LeftProps"));
    watch.PropsFlagChanged(true);
    EXPECT_TRUE(watch.isDragging());
    watch.PropsVectorsChanged({0.5f, 0, 0}, {1, 2, 3});  // metres, then scene units
    watch.PropsValuesChanged(osg::Quat(1, 0, 0, 0), {2, 2, 2});
    const PropState& prop = *watch.find("0#LeftProps");
    EXPECT_EQ(prop.position, osg::Vec3d(50, 0, 0));
    EXPECT_EQ(prop.contactPoint, osg::Vec3d(1, 2, 3));
    EXPECT_EQ(prop.scale, osg::Vec3d(2, 2, 2));
    EXPECT_EQ(prop.changes, 1u);
    EXPECT_EQ(prop.drags, 0u);
    watch.PropsFlagChanged(false);
    EXPECT_FALSE(watch.isDragging());
    EXPECT_EQ(prop.drags, 1u);
}

TEST(PropsWatch, forgetsWhatItKnewOfAnActorThatIsReplaced)
{
    Figure figure("0#LeftProps");
    PropsWatch watch;
    watch.setActors({{0, figure.root}});
    watch.IsPropsConcerned("0#LeftProps");
    watch.PropsVectorsChanged({0.5f, 0, 0}, {});
    watch.setActors({{0, figure.root}});
    EXPECT_EQ(watch.find("0#LeftProps")->changes, 1u) << "the same prop";
    const Figure other("0#LeftProps");
    watch.setActors({{0, other.root}});
    EXPECT_EQ(watch.find("0#LeftProps")->changes, 0u);
    figure.root = nullptr;
    watch.setActors({});
    EXPECT_TRUE(watch.all().empty());
}
