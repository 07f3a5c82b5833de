#include "KivCharacterization/Characterization/labelvisibility.h"

#include <gtest/gtest.h>

#include "KivAnimation/animation.h"
#include "KivCharacterization/Characterization/actorupdatecallbacks.h"

namespace KivCharacterization {

namespace {

class LabelVisibility : public testing::Test
{
protected:
    /// An actor whose label has two children.
    osg::Switch& addActor(const std::string& id)
    {
        const osg::ref_ptr<osg::Switch> label = new osg::Switch;
        label->addChild(new osg::Group, false);
        label->addChild(new osg::Group, false);
        label->setNewChildDefaultValue(false);
        actors[id].labelSwitch = label;
        return *label;
    }

    static bool isAll(const osg::Switch& label, bool shown)
    {
        return label.getValueList() == osg::Switch::ValueList(2, shown) &&
               label.getNewChildDefaultValue() == shown;
    }

    ActorTable actors;
};

TEST_F(LabelVisibility, ofALoneActorIsNone)
{
    osg::Switch& label = addActor("1");
    label.setAllChildrenOn();
    updateLabelVisibility(actors);
    EXPECT_TRUE(isAll(label, false));
}

TEST_F(LabelVisibility, isGivenToEverybodyOnceThereAreTwo)
{
    osg::Switch& first = addActor("1");
    osg::Switch& second = addActor("2");
    updateLabelVisibility(actors);
    EXPECT_TRUE(isAll(first, true));
    EXPECT_TRUE(isAll(second, true));
}

TEST_F(LabelVisibility, passesByActorsWithoutALabel)
{
    osg::Switch& label = addActor("1");
    actors["2"];
    updateLabelVisibility(actors);
    EXPECT_TRUE(isAll(label, true));
}

TEST_F(LabelVisibility, isRestoredWhereOneChildDiffers)
{
    osg::Switch& first = addActor("1");
    osg::Switch& second = addActor("2");
    updateLabelVisibility(actors);
    first.setValue(1, false);
    second.setNewChildDefaultValue(false);
    updateLabelVisibility(actors);
    EXPECT_TRUE(isAll(first, true));
    EXPECT_TRUE(isAll(second, true));
}

}  // namespace

}  // namespace KivCharacterization
