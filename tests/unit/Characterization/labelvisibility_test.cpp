#include "KivCharacterization/Characterization/labelvisibility.h"

#include <gtest/gtest.h>

#include "KivAnimation/animation.h"
#include "KivCharacterization/Characterization/actorupdatecallbacks.h"

namespace KivCharacterization {

namespace {

/// Counts how often the bound of what it belongs to is found.
class BoundCount : public osg::Node::ComputeBoundingSphereCallback
{
public:
    osg::BoundingSphere computeBound(const osg::Node& node) const override
    {
        ++count;
        return node.computeBound();
    }

    mutable int count = 0;
};

class LabelVisibility : public testing::Test
{
protected:
    /// An actor whose label has two children.
    osg::Switch& addActor(const std::string& id)
    {
        osg::ref_ptr<osg::Switch> label = new osg::Switch;
        label->addChild(new osg::Group, false);
        label->addChild(new osg::Group, false);
        label->setNewChildDefaultValue(false);
        above->addChild(label.get());
        actors[id].labelSwitch = label;
        return *label;
    }

    static bool isAll(const osg::Switch& label, bool shown)
    {
        return label.getValueList() == osg::Switch::ValueList(2, shown) &&
               label.getNewChildDefaultValue() == shown;
    }

    /// How often the bound above the labels is found anew when their visibility is brought up to date.
    int boundsFound()
    {
        above->getBound();
        const int before = bounds->count;
        UpdateLabelVisibility(actors);
        above->getBound();
        return bounds->count - before;
    }

    LabelVisibility() { above->setComputeBoundingSphereCallback(bounds.get()); }

    ActorTable actors;
    osg::ref_ptr<osg::Group> above = new osg::Group;
    osg::ref_ptr<BoundCount> bounds = new BoundCount;
};

TEST_F(LabelVisibility, ofALoneActorIsNone)
{
    osg::Switch& label = addActor("1");
    label.setAllChildrenOn();
    UpdateLabelVisibility(actors);
    EXPECT_TRUE(isAll(label, false));
}

TEST_F(LabelVisibility, isGivenToEverybodyOnceThereAreTwo)
{
    osg::Switch& first = addActor("1");
    osg::Switch& second = addActor("2");
    UpdateLabelVisibility(actors);
    EXPECT_TRUE(isAll(first, true));
    EXPECT_TRUE(isAll(second, true));
}

TEST_F(LabelVisibility, passesByActorsWithoutALabel)
{
    osg::Switch& label = addActor("1");
    actors["2"];
    UpdateLabelVisibility(actors);
    EXPECT_TRUE(isAll(label, true));
}

TEST_F(LabelVisibility, isRestoredWhereOneChildDiffers)
{
    osg::Switch& first = addActor("1");
    osg::Switch& second = addActor("2");
    UpdateLabelVisibility(actors);
    first.setValue(1, false);
    second.setNewChildDefaultValue(false);
    UpdateLabelVisibility(actors);
    EXPECT_TRUE(isAll(first, true));
    EXPECT_TRUE(isAll(second, true));
}

TEST_F(LabelVisibility, leavesTheBoundsAboveAloneWhereNothingChanges)
{
    addActor("1");
    addActor("2");
    EXPECT_EQ(boundsFound(), 1);
    EXPECT_EQ(boundsFound(), 0);
    actors.erase("2");
    EXPECT_EQ(boundsFound(), 1);
    EXPECT_EQ(boundsFound(), 0);
}

}  // namespace

}  // namespace KivCharacterization
