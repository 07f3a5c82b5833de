#include "apps/kivplayer/options/overlays.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace KivPlayer;

TEST(Overlays, knowsNoOptionOfAnotherName)
{
    EXPECT_EQ(overlayOption(""), nullptr);
    EXPECT_EQ(overlayOption("Names"), nullptr);
    EXPECT_EQ(overlayOption("shadows"), nullptr) << "for the window alone";
}

TEST(Overlays, haveOneRowEachInTheOrderOfTheirEnumeration)
{
    std::set<std::string> names;
    std::set<char> keys;
    for (std::size_t i = 0; i < kOverlayCount; ++i) {
        const OverlayEntry& entry = overlayTable()[i];
        EXPECT_EQ(static_cast<std::size_t>(entry.overlay), i) << entry.name;
        EXPECT_EQ(&entryOf(entry.overlay), &entry);
        EXPECT_TRUE(names.insert(entry.name).second) << entry.name << " twice";
        EXPECT_TRUE(keys.insert(entry.key).second) << entry.key << " twice";
        EXPECT_STRNE(entry.text, "");
    }
}

TEST(Overlays, areNamedInASentence)
{
    EXPECT_EQ(overlayOptionNames(" or "), "names, contacts, com, skeleton, grid or props");
    EXPECT_EQ(overlayOptionNames(), "names, contacts, com, skeleton, grid, props");
}

TEST(OverlaySet, isWhatTheTableSaysUntilSomebodyDecides)
{
    OverlaySet shown;
    EXPECT_TRUE(shown[Overlay::Grid]);
    EXPECT_FALSE(shown[Overlay::Names]);
    EXPECT_FALSE(shown.chosen(Overlay::Grid));
    shown.set(Overlay::Grid, false);
    EXPECT_FALSE(shown[Overlay::Grid]);
    EXPECT_EQ(shown.chosen(Overlay::Grid), false);
    EXPECT_FALSE(shown.chosen(Overlay::Names));
}
