#include "KivReader/editdistance.h"

#include <gtest/gtest.h>

namespace {

using KivReader::editDistance;

TEST(EditDistance, ofAnEmptyTextIsTheLengthOfTheOther)
{
    EXPECT_EQ(editDistance("", ""), 0u);
    EXPECT_EQ(editDistance("", "Hips"), 4u);
    EXPECT_EQ(editDistance("Hips", ""), 4u);
}

TEST(EditDistance, countsInsertedDeletedAndChangedLetters)
{
    EXPECT_EQ(editDistance("Hips", "Hips"), 0u);
    EXPECT_EQ(editDistance("Hip", "Hips"), 1u);
    EXPECT_EQ(editDistance("Hips", "ips"), 1u);
    EXPECT_EQ(editDistance("Hips", "Hops"), 1u);
    EXPECT_EQ(editDistance("kitten", "sitting"), 3u);
    EXPECT_EQ(editDistance("LeftArm", "LArm"), 3u);
}

}  // namespace
