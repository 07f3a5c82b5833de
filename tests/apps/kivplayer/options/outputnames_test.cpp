#include "apps/kivplayer/options/outputnames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using KivPlayer::OutputNames;

std::string problemOf(const char* text)
{
    const auto parsed = OutputNames::parse(text);
    const auto* problem = std::get_if<std::string>(&parsed);
    return problem ? *problem : std::string();
}

OutputNames names(const char* text)
{
    return std::get<OutputNames>(OutputNames::parse(text));
}

TEST(OutputNames, refusesTemplatesThatItDoesNotUnderstand)
{
    for (const char* text : {"", "{", "}", "{frame", "frame}", "{}", "{frames}", "{Frame}", "{frame:}",
                             "{frame:-4}", "{frame:+4}", "{frame:4d}", "{frame:99}", "{frame04}",
                             "{frame}{frame}", "{{frame}", "{frame:04:2}"})
        EXPECT_NE(problemOf(text), "") << text;
}

TEST(OutputNames, namesTheOffendingFieldInItsMessage)
{
    EXPECT_THAT(problemOf("out/{number}.png"), testing::HasSubstr("{number}"));
}

TEST(OutputNames, keepsANameWithoutATemplate)
{
    EXPECT_FALSE(names("a b.png").isSequence());
    EXPECT_EQ(names("a b.png").name(7), "a b.png");
    EXPECT_EQ(names("%d.png").name(7), "%d.png");
}

TEST(OutputNames, putsTheNumberOfThePictureIn)
{
    EXPECT_TRUE(names("out/{frame}.png").isSequence());
    EXPECT_EQ(names("out/{frame}.png").name(12), "out/12.png");
    EXPECT_EQ(names("out/{frame:04}.png").name(12), "out/0012.png");
    EXPECT_EQ(names("out/{frame:4}.png").name(12), "out/  12.png");
    EXPECT_EQ(names("{frame:02}").name(12345), "12345");
    EXPECT_EQ(names("{frame:0}").name(5), "5");
}

TEST(OutputNames, takesDoubledBracesAsBraces)
{
    EXPECT_EQ(names("{{a}}.png").name(0), "{a}.png");
    EXPECT_EQ(names("{{{frame}}}.png").name(3), "{3}.png");
}

}  // namespace
