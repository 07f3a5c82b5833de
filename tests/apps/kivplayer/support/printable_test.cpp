#include "apps/kivplayer/support/printable.h"

#include <gtest/gtest.h>

namespace {

using KivPlayer::printable;

TEST(Printable, escapesWhatATerminalWouldObey)
{
    EXPECT_EQ(printable("Hips\x1b[2J"), "Hips\\x1B[2J");
    EXPECT_EQ(printable("bell\a tab\t return\r"), "bell\\x07 tab\\x09 return\\x0D");
    EXPECT_EQ(printable(std::string("nul\0!", 5)), "nul\\x00!");
    EXPECT_EQ(printable("\x7f"), "\\x7F");
    EXPECT_EQ(printable("\xC2\x9B"
                        "2J"),
              "\\x9B2J")
        << "the one-character form of ESC [";
}

TEST(Printable, leavesLinesAndLettersOfAllLanguages)
{
    EXPECT_EQ(printable("Jürgen\n腰 Ω é"), "Jürgen\n腰 Ω é");
    EXPECT_EQ(printable("\xC2\xA0"), "\xC2\xA0") << "a hard space is no control character";
    EXPECT_EQ(printable("cut\xC2"), "cut\xC2");
    EXPECT_EQ(printable(""), "");
}

}  // namespace
