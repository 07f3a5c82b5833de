#include "KivCharacterization/Characterization/namelabel.h"

#include <gtest/gtest.h>
#include <osg/Billboard>

#include <string>

#include "KivCharacterization/Characterization/actorupdatecallbacks.h"

namespace {

using namespace KivCharacterization;

/// A label without letters, and a skeleton to hang it into.
class LabelPlace : public testing::Test
{
protected:
    osg::ref_ptr<osg::Group> add(osg::Group& parent, const std::string& name)
    {
        const osg::ref_ptr<osg::Group> node = new osg::Group;
        node->setName(name);
        parent.addChild(node);
        return node;
    }

    static bool isFollowedFrom(osg::Node& anchor)
    {
        return dynamic_cast<ActorNameUpdateCallback*>(anchor.getUpdateCallback()) != nullptr;
    }

    void attach() { attachNameLabel(label, *skeleton, *skeletonSwitch); }

    SNameLabel label{new osg::Switch, new osg::MatrixTransform, new osgText::Text3D};
    osg::ref_ptr<osg::Group> root = new osg::Group;
    osg::ref_ptr<osg::Switch> skeletonSwitch = new osg::Switch;
    osg::ref_ptr<osg::Group> skeleton = new osg::Group;
};

TEST_F(LabelPlace, isBesideTheFirstHeadInPreOrder)
{
    const auto hips = add(*skeleton, "7#Hips");
    const auto neck = add(*hips, "7#Neck");
    const auto head = add(*neck, "7#Head");
    const auto end = add(*head, "7#HeadEnd");
    const auto second = add(*hips, "7#Head");
    attach();
    EXPECT_TRUE(neck->containsNode(label.labelSwitch));
    EXPECT_FALSE(hips->containsNode(label.labelSwitch));
    EXPECT_TRUE(isFollowedFrom(*head));
    EXPECT_FALSE(isFollowedFrom(*end));
    EXPECT_FALSE(isFollowedFrom(*second));
}

TEST_F(LabelPlace, isFoundBehindANodeThatCannotHaveChildren)
{
    const auto hips = add(*skeleton, "7#Hips");
    const osg::ref_ptr<osg::Node> marker = new osg::Node;
    hips->addChild(marker);
    const auto head = add(*hips, "7#Head");
    attach();
    EXPECT_TRUE(isFollowedFrom(*head));
}

TEST_F(LabelPlace, isBesideTheSkeletonWithoutAHead)
{
    root->addChild(skeletonSwitch);
    add(*skeleton, "7#Hips");
    attach();
    EXPECT_TRUE(root->containsNode(label.labelSwitch));
    EXPECT_TRUE(isFollowedFrom(*skeletonSwitch));
}

TEST_F(LabelPlace, isNowhereBesideANodeWithoutParent)
{
    attach();
    EXPECT_EQ(label.labelSwitch->getNumParents(), 0u);
    EXPECT_TRUE(isFollowedFrom(*skeletonSwitch));
}

TEST_F(LabelPlace, leavesTheHeadTheCallbacksThatItHas)
{
    const auto head = add(*skeleton, "7#Head");
    const osg::ref_ptr<osg::NodeCallback> earlier = new osg::NodeCallback;
    head->setUpdateCallback(earlier);
    attach();
    EXPECT_EQ(head->getUpdateCallback(), earlier.get());
    EXPECT_TRUE(dynamic_cast<ActorNameUpdateCallback*>(earlier->getNestedCallback()));
}

TEST(MadeNameLabel, isAWhiteTextInABillboard)
{
    const osg::ref_ptr<osgText::Font> font = new osgText::Font;
    const SNameLabel label = makeNameLabel(*font, "Zo\xC3\xAB");

    ASSERT_EQ(label.labelSwitch->getNumChildren(), 1u);
    EXPECT_EQ(label.labelSwitch->getChild(0), label.transform.get());
    ASSERT_EQ(label.transform->getNumChildren(), 1u);
    const auto* billboard = dynamic_cast<const osg::Billboard*>(label.transform->getChild(0));
    ASSERT_TRUE(billboard);
    EXPECT_EQ(billboard->getMode(), osg::Billboard::POINT_ROT_EYE);
    ASSERT_EQ(billboard->getNumDrawables(), 1u);
    EXPECT_EQ(billboard->getDrawable(0), label.text.get());

    EXPECT_EQ(label.text->getText().createUTF8EncodedString(), "Zo\xC3\xAB");
    EXPECT_EQ(label.text->getFont(), font.get());
    EXPECT_EQ(label.text->getCharacterHeight(), 12.0f);
    EXPECT_EQ(label.text->getStyle()->getThicknessRatio(), 0.0f);
    EXPECT_EQ(label.text->getDrawMode(), static_cast<unsigned int>(osgText::TextBase::TEXT));
    EXPECT_EQ(label.text->getAxisAlignment(), osgText::TextBase::XZ_PLANE);
    EXPECT_EQ(label.text->getAlignment(), osgText::TextBase::CENTER_CENTER);
    EXPECT_EQ(label.text->getColor(), osg::Vec4(1, 1, 1, 1));
    EXPECT_TRUE(label.text->getAutoRotateToScreen());
}

}  // namespace
