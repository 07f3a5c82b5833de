#include "KivReader/readinglistener.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "KivReader/motiondocument.h"

namespace {

using KivReader::ReadingListener;
using KivReader::readMotionDocument;

constexpr std::size_t kMegabyte = 1 << 20;

/// A motion of about that many bytes of text.
std::string motionOf(std::size_t bytes)
{
    std::string text =
        "HIERARCHY\nROOT Hips\n{\nOFFSET 0 0 0\nCHANNELS 1 Xposition\n}\nMOTION\nFrames: 9\nFrame Time: 1\n";
    while (text.size() < bytes)
        text += "12345.6\n";
    return text;
}

struct Heard
{
    std::vector<std::size_t> bytes;
    std::vector<std::size_t> of;
    int ended = 0;
    ReadingListener listener{[this](std::size_t read, std::size_t all) {
                                 bytes.push_back(read);
                                 of.push_back(all);
                             },
                             [this] { ++ended; }};
};

TEST(ReadingListenerTest, isToldThatATextIsRefused)
{
    Heard heard;
    EXPECT_FALSE(readMotionDocument("").document);
    EXPECT_EQ(heard.ended, 1);
    EXPECT_TRUE(heard.bytes.empty());
    const std::string text = motionOf(3 * kMegabyte) + "nonsense\n";
    EXPECT_FALSE(readMotionDocument(text).document);
    EXPECT_EQ(heard.ended, 2);
    ASSERT_FALSE(heard.bytes.empty());
    EXPECT_LT(heard.bytes.back(), text.size()) << "never that all was read";
}

TEST(ReadingListenerTest, isToldAtEveryMegabyteInOrderAndAtTheEnd)
{
    Heard heard;
    const std::string text = motionOf(5 * kMegabyte);
    ASSERT_TRUE(readMotionDocument(text).document);
    std::size_t before = 0;
    for (const std::size_t bytes : heard.bytes) {
        EXPECT_GT(bytes, before);
        EXPECT_LE(bytes - before, kMegabyte);
        before = bytes;
    }
    EXPECT_EQ(before, text.size());
    EXPECT_EQ(heard.of, std::vector<std::size_t>(heard.bytes.size(), text.size()));
    EXPECT_EQ(heard.ended, 1);
}

TEST(ReadingListenerTest, isToldOfAShortTextAtItsEndAlone)
{
    Heard heard;
    const std::string text = motionOf(1000);
    ASSERT_TRUE(readMotionDocument(text).document);
    EXPECT_EQ(heard.bytes, std::vector<std::size_t>{text.size()});
}

TEST(ReadingListenerTest, isTheFirstOneAsLongAsItLives)
{
    Heard first;
    {
        const Heard second;
        EXPECT_TRUE(readMotionDocument(motionOf(1000)).document);
        EXPECT_EQ(second.ended, 0);
        EXPECT_EQ(first.ended, 1);
    }
    EXPECT_TRUE(readMotionDocument(motionOf(1000)).document);
    EXPECT_EQ(first.ended, 2);
}

TEST(ReadingListenerTest, makesRoomForTheNextOne)
{
    for (int i = 0; i < 2; ++i) {
        Heard heard;
        EXPECT_TRUE(readMotionDocument(motionOf(1000)).document);
        EXPECT_EQ(heard.ended, 1);
    }
    EXPECT_TRUE(readMotionDocument(motionOf(1000)).document) << "and nobody is told";
}

}  // namespace
