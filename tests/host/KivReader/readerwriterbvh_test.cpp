#include "KivReader/readerwriterbvh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <osg/Group>
#include <osg/ref_ptr>

#include <string>
#include <thread>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"
#include "KivAnimation/updatebone.h"
#include "tests/host/KivReader/motiontext.h"

namespace {

using KivAnimation::Animation;
using KivAnimation::Bone;
using KivAnimation::Skeleton;
using KivAnimation::UpdateBone;
using KivReader::ReaderWriterBVH;
using KivReaderTest::MotionText;

struct Reading
{
    osg::ref_ptr<osg::Node> node;
    osg::ref_ptr<Animation> animation;
    std::string name;
    bool succeeded = false;
};

Reading read(const std::string& text, const std::string& name = "7", bool qualify = true,
             const osgDB::Options* options = nullptr)
{
    Reading reading;
    reading.name = name;
    osg::Node* node = nullptr;
    Animation* animation = nullptr;
    reading.succeeded = ReaderWriterBVH::readBVHNode(text, options, &node, &animation, reading.name, qualify);
    reading.node = node;
    reading.animation = animation;
    return reading;
}

template <typename Wanted>
Wanted* firstChild(osg::Node* node)
{
    osg::Group* group = node ? node->asGroup() : nullptr;
    return group && group->getNumChildren() > 0 ? dynamic_cast<Wanted*>(group->getChild(0)) : nullptr;
}

Bone* rootOf(const Reading& reading)
{
    return firstChild<Bone>(firstChild<Skeleton>(reading.node.get()));
}

class BvhReader : public testing::Test
{
protected:
    void TearDown() override { ReaderWriterBVH::setDefaultOptions(nullptr); }
};

TEST_F(BvhReader, touchesNothingAndSaysWhyForARefusedText)
{
    int marker = 0;
    auto* const someNode = reinterpret_cast<osg::Node*>(&marker);
    auto* const someAnimation = reinterpret_cast<Animation*>(&marker);
    osg::Node* node = someNode;
    Animation* animation = someAnimation;
    std::string name;
    EXPECT_FALSE(ReaderWriterBVH::readBVHNode("HIERARCHY\nROT x\n", nullptr, &node, &animation, name, true));
    EXPECT_EQ(node, someNode);
    EXPECT_EQ(animation, someAnimation);
    EXPECT_EQ(name, "");
    EXPECT_EQ(ReaderWriterBVH::lastError(), "line 2, column 1: expected ROOT, found 'ROT'");
}

TEST_F(BvhReader, refusesANullOutPointer)
{
    osg::Node* node = nullptr;
    Animation* animation = nullptr;
    std::string name = "a";
    const std::string text = MotionText().text();
    EXPECT_FALSE(ReaderWriterBVH::readBVHNode(text, nullptr, nullptr, &animation, name, true));
    EXPECT_FALSE(ReaderWriterBVH::readBVHNode(text, nullptr, &node, nullptr, name, true));
    EXPECT_EQ(node, nullptr);
    EXPECT_EQ(animation, nullptr);
    EXPECT_NE(ReaderWriterBVH::lastError(), "");
}

TEST_F(BvhReader, refusesOptionsThatCannotBeObeyed)
{
    for (const char* words : {"up=x", "unit=0", "unit=-1", "unit=nan", "unit=", "up=y unit=1,5"}) {
        SCOPED_TRACE(words);
        const osg::ref_ptr<osgDB::Options> options = new osgDB::Options(words);
        EXPECT_FALSE(read(MotionText().text(), "7", true, options.get()).succeeded);
        EXPECT_THAT(ReaderWriterBVH::lastError(), testing::HasSubstr("cannot be obeyed"));
    }
}

TEST_F(BvhReader, forgetsTheErrorOnSuccessAndOnReset)
{
    read("nothing");
    EXPECT_NE(ReaderWriterBVH::lastError(), "");
    EXPECT_TRUE(read(MotionText().text()).succeeded);
    EXPECT_EQ(ReaderWriterBVH::lastError(), "");
    read("nothing");
    ReaderWriterBVH::resetKivReader();
    EXPECT_EQ(ReaderWriterBVH::lastError(), "");
}

TEST_F(BvhReader, tellsOneThreadWhyTheReadingOfAnotherWasRefused)
{
    std::thread([this] { read("nothing"); }).join();
    EXPECT_NE(ReaderWriterBVH::lastError(), "");
}

TEST_F(BvhReader, handsBothBackUnheld)
{
    osg::Node* node = nullptr;
    Animation* animation = nullptr;
    std::string name = "7";
    ASSERT_TRUE(ReaderWriterBVH::readBVHNode(MotionText().text(), nullptr, &node, &animation, name, true));
    EXPECT_EQ(node->referenceCount(), 0);
    EXPECT_EQ(animation->referenceCount(), 0);
    const osg::ref_ptr<osg::Node> holdNode = node;
    const osg::ref_ptr<Animation> holdAnimation = animation;
}

TEST_F(BvhReader, reachesTheRootJointAlongFirstChildren)
{
    const Reading reading = read(MotionText().text());
    Bone* root = rootOf(reading);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->getName(), "7#Hips");
    Bone* spine = firstChild<Bone>(root);
    ASSERT_NE(spine, nullptr);
    EXPECT_EQ(spine->getName(), "7#Spine");
    Bone* end = firstChild<Bone>(spine);
    ASSERT_NE(end, nullptr);
    EXPECT_EQ(end->getName(), "7#SpineEnd");
}

TEST_F(BvhReader, givesTheRootJointAloneAnUpdateBoneAtRest)
{
    const Reading reading = read(MotionText().text());
    Bone* root = rootOf(reading);
    auto* update = dynamic_cast<UpdateBone*>(root->getUpdateCallback());
    ASSERT_NE(update, nullptr);
    EXPECT_EQ(update->getMatrix(), root->getInitialMatrix());
    EXPECT_EQ(firstChild<Bone>(root)->getUpdateCallback(), nullptr);
}

TEST_F(BvhReader, posesEveryBoneAtRest)
{
    MotionText parts;
    parts.jointOffset = "OFFSET 1 2 3";
    const Reading reading = read(parts.text());
    Bone* root = rootOf(reading);
    Bone* spine = firstChild<Bone>(root);
    EXPECT_EQ(root->getInitialMatrix(), osg::Matrixd::translate(0, 0, 90));
    EXPECT_EQ(root->getMatrix(), root->getInitialMatrix());
    EXPECT_EQ(spine->getInitialMatrix(), osg::Matrixd::translate(1, -3, 2));
    EXPECT_EQ(spine->getMatrix(), spine->getInitialMatrix());
    EXPECT_EQ(spine->getMatrixInSkeletonSpace(), spine->getMatrix() * root->getMatrixInSkeletonSpace());
    EXPECT_EQ(spine->getMatrixInSkeletonSpace().getTrans(), osg::Vec3d(1, -3, 92));
}

TEST_F(BvhReader, leavesNamesAloneUnlessAskedToQualify)
{
    const Reading reading = read(MotionText().text(), "7", false);
    EXPECT_EQ(rootOf(reading)->getName(), "Hips");
    EXPECT_EQ(reading.name, "7");
}

TEST_F(BvhReader, fillsAnEmptyNameFromTheRootJoint)
{
    const Reading reading = read(MotionText().text(), "");
    EXPECT_EQ(reading.name, "Hips");
    EXPECT_EQ(rootOf(reading)->getName(), "Hips#Hips");
}

TEST_F(BvhReader, keepsTheTableAsTheFileHasIt)
{
    const Reading reading = read(MotionText().text());
    const KivAnimation::MotionTable& table = reading.animation->motionTable();
    EXPECT_EQ(table.columns, 9U);
    EXPECT_EQ(table.frames, 2U);
    EXPECT_EQ(table.frameTime, 0.025);
    EXPECT_THAT(table.values,
                testing::ElementsAre(0, 90, 0, 1, 2, 3, 4, 5, 6, 1, 91, 1, 7, 8, 9, 10, 11, 12));
    EXPECT_EQ(reading.animation->frameCount(), 2U);
}

TEST_F(BvhReader, readsAHierarchyAloneAsASkeletonAtRest)
{
    const Reading reading = read(MotionText().hierarchy());
    ASSERT_TRUE(reading.succeeded);
    EXPECT_EQ(reading.animation->frameCount(), 1U);
    EXPECT_EQ(reading.animation->duration(), 0.0);
    reading.animation->pose(0.0);
    EXPECT_EQ(rootOf(reading)->getMatrix(), rootOf(reading)->getInitialMatrix());
}

TEST_F(BvhReader, posesTheRootByTheRow)
{
    MotionText parts;
    parts.rows = "3 91 5 0 90 0 0 0 0\n";
    const Reading reading = read(parts.text());
    reading.animation->pose(0.0);
    const osg::Matrixd matrix = rootOf(reading)->getMatrix();
    EXPECT_LT((matrix.getTrans() - osg::Vec3d(3, -5, 91)).length(), 1e-6);
    // A quarter turn about X takes the file's Y, the scene's Z, to the file's Z, the scene's -Y.
    EXPECT_LT((osg::Matrixd::transform3x3(osg::Vec3d(0, 0, 1), matrix) - osg::Vec3d(0, -1, 0)).length(),
              1e-6);
}

TEST_F(BvhReader, usesTheDefaultOptionsWhereACallPassesNone)
{
    ReaderWriterBVH::setDefaultOptions(new osgDB::Options("other unit=100 noise=1 up=z"));
    EXPECT_EQ(rootOf(read(MotionText().text()))->getInitialMatrix().getTrans(), osg::Vec3d(0, 9000, 0));
    ReaderWriterBVH::resetKivReader();
    EXPECT_EQ(rootOf(read(MotionText().text()))->getInitialMatrix().getTrans(), osg::Vec3d(0, 9000, 0));
    const osg::ref_ptr<osgDB::Options> own = new osgDB::Options("unit=2");
    EXPECT_EQ(rootOf(read(MotionText().text(), "7", true, own.get()))->getInitialMatrix().getTrans(),
              osg::Vec3d(0, 0, 180));
    ReaderWriterBVH::setDefaultOptions(nullptr);
    EXPECT_EQ(rootOf(read(MotionText().text()))->getInitialMatrix().getTrans(), osg::Vec3d(0, 0, 90));
}

TEST_F(BvhReader, readsInSeveralThreadsWhileTheDefaultsChange)
{
    int failures[3] = {};
    std::thread readers[3];
    for (int i = 0; i < 3; ++i) {
        readers[i] = std::thread([&failures, i] {
            for (int turn = 0; turn < 50; ++turn)
                failures[i] += read(MotionText().text()).succeeded ? 0 : 1;
        });
    }
    for (int turn = 0; turn < 50; ++turn)
        ReaderWriterBVH::setDefaultOptions(new osgDB::Options("unit=2"));
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_THAT(failures, testing::Each(0));
}

}  // namespace
