#include "tests/apps/kivplayer/options/commandline.h"

#include <gmock/gmock.h>

KivPlayer::Parsing parse(const std::vector<std::string>& arguments)
{
    std::vector<const char*> argv{"kivplayer"};
    for (const std::string& argument : arguments)
        argv.push_back(argument.c_str());
    return KivPlayer::parseOptions(static_cast<int>(argv.size()), argv.data());
}

TEST_P(RefusedOptions, endsWithTwoAndOneLineThatSaysWhy)
{
    const KivPlayer::Parsing parsing = parse(GetParam().arguments);
    EXPECT_FALSE(parsing.options);
    EXPECT_EQ(parsing.exitCode, 2);
    EXPECT_EQ(parsing.output, "");
    EXPECT_THAT(parsing.error, testing::StartsWith("kivplayer: error: "));
    EXPECT_THAT(parsing.error, testing::HasSubstr(GetParam().said));
}
