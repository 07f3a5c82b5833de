#include <gtest/gtest.h>

#include "KivAnimation/basicanimationmanager.h"
#include "KivReader/readerwriterbvh.h"
#include "KivTaskCommand/taskcommand.h"
#include "tests/support/figures.h"
#include "tests/support/freshhost.h"
#include "tests/support/manageraccess.h"

namespace {

/// What the reader below answers with.
struct Answer
{
    bool success = false;
    osg::Node* node = nullptr;
    KivAnimation::Animation* animation = nullptr;
};
Answer answer;

}  // namespace

// A program's own function stands before that of a library: here for the reader of a host that promises less
// than ours.
bool KivReader::ReaderWriterBVH::readBVHNode(const std::string&, const osgDB::Options*, osg::Node** node,
                                             KivAnimation::Animation** animation, std::string&, bool)
{
    *node = answer.node;
    *animation = answer.animation;
    return answer.success;
}

namespace {

using namespace KivCharacterization;
using namespace KivTestSupport;

class OtherReader : public FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        access().avatars["avatar"] = analysed(smallAvatar().get());
    }

    /// Both are handed over unheld, as readers do.
    bool loadWhatIsRead(osg::Node* node, KivAnimation::Animation* animation)
    {
        answer = {true, node, animation};
        KivTaskCommand::TaskCommand command;
        CharacterizationManager::instance()->createLoadBVHCommand("anything", 1, "Ann", &command);
        return command.run();
    }

    static unsigned int actorsInTheScene()
    {
        return KivMemoryShare::SceneCfgShare::instance()->getCharacterSceneNode()->getNumChildren();
    }

    static CharacterizationManagerAccess access()
    {
        return CharacterizationManagerAccess(*CharacterizationManager::instance());
    }
};

TEST_F(OtherReader, isRefusedWhenItSucceedsWithoutASkeletonOrAnAnimation)
{
    EXPECT_FALSE(loadWhatIsRead(nullptr, nullptr));
    EXPECT_FALSE(loadWhatIsRead(nullptr, new KivAnimation::Animation));
    EXPECT_FALSE(loadWhatIsRead(new osg::Node, new KivAnimation::Animation));
    EXPECT_FALSE(loadWhatIsRead(new osg::Group, nullptr));
    EXPECT_TRUE(access().actors.empty());
    EXPECT_EQ(actorsInTheScene(), 0u);
}

TEST_F(OtherReader, leavesItsRecordButNoActorWhenItsGroupHoldsNoSkeleton)
{
    EXPECT_FALSE(loadWhatIsRead(new osg::Group, new KivAnimation::Animation));
    EXPECT_EQ(access().actors.count("1"), 1u);
    EXPECT_EQ(actorsInTheScene(), 0u);
}

TEST_F(OtherReader, bringsAnActorIntoTheSceneOnceItKeepsThePromise)
{
    const auto hips = bone("1#Hips");
    EXPECT_TRUE(loadWhatIsRead(skeletonOf(hips.get()).release(), new KivAnimation::Animation));
    EXPECT_EQ(actorsInTheScene(), 1u);
}

}  // namespace
