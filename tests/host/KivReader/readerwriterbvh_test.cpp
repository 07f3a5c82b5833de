#include "KivReader/readerwriterbvh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "tests/host/KivReader/motiontext.h"
#include "tests/host/KivReader/readmotion.h"

namespace {

using namespace KivReaderTest;
using KivAnimation::Animation;
using KivReader::ReaderWriterBVH;

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
    for (const char* words : {"up=w", "up=--y", "unit=0", "unit=-1", "unit=nan", "unit=", "up=y unit=1,5"}) {
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

/// Quarter turns, whose order shows: about X and then Y a bone along X ends along Y, the other way round
/// along -Z (in the file's axes).
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
