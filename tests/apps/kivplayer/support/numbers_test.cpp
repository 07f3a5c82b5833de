#include "apps/kivplayer/support/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

#include <string>

namespace {

TEST(Numbers, refusesWhatIsNoPlainDecimalNumber)
{
    for (const char* text :
         {"", " ", "nan", "inf", "-inf", "0x10", "1e999", "1.5s", " 1", "1 ", "1,5", "--1", "+", "+-1"})
        EXPECT_FALSE(KivPlayer::parseNumber(text)) << "\"" << text << "\"";
}

TEST(Numbers, readsDecimalNumbersInAllTheirForms)
{
    EXPECT_EQ(KivPlayer::parseNumber("1.5"), 1.5);
    EXPECT_EQ(KivPlayer::parseNumber("+1.5"), 1.5);
    EXPECT_EQ(KivPlayer::parseNumber("-.5"), -0.5);
    EXPECT_EQ(KivPlayer::parseNumber("1e-3"), 0.001);
}

TEST(Numbers, refusesBrokenAndOverflowingIntegers)
{
    for (const char* text : {"", "1.0", "1e3", "99999999999999999999", "0x1"})
        EXPECT_FALSE(KivPlayer::parseInteger(text)) << text;
    EXPECT_EQ(KivPlayer::parseInteger("-12"), -12);
}

TEST(Numbers, refusesAnotherCountThanAskedFor)
{
    for (const char* text : {"", "1", "1,2", "1,2,3,4", "1,,3", "1,2,", ",1,2"})
        EXPECT_FALSE(KivPlayer::parseNumbers(text, 3)) << text;
    const auto numbers = KivPlayer::parseNumbers("1,-2,.5", 3);
    ASSERT_TRUE(numbers);
    EXPECT_EQ(*numbers, (std::vector<double>{1.0, -2.0, 0.5}));
}

TEST(NumberText, isEmptyForWhatIsNoNumber)
{
    EXPECT_EQ(KivPlayer::numberText(std::nan("")), "");
    EXPECT_EQ(KivPlayer::numberText(HUGE_VAL), "");
}

TEST(NumberText, isTheShortestThatReadsBack)
{
    EXPECT_EQ(KivPlayer::numberText(0.1), "0.1");
    EXPECT_EQ(KivPlayer::numberText(0.1f), "0.1");
    EXPECT_EQ(KivPlayer::numberText(-0.0), "0") << "no sign where there is nothing";
    EXPECT_EQ(KivPlayer::numberText(100.0), "100");
    for (const double value : {1.0 / 3.0, 1e-300, -123456.789})
        EXPECT_EQ(KivPlayer::parseNumber(KivPlayer::numberText(value)), value);
}

}  // namespace
