#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <string>

#include "KivCharacterization/Characterization/modelloading.h"
#include "KivCharacterization/Characterization/namelabel.h"
#include "tests/soak/limitedchild.h"
#include "tests/soak/rounds.h"
#include "tests/support/contentfolder.h"
#include "tests/support/corruption.h"
#include "tests/support/motionlibrary.h"

namespace {

using namespace KivTestSupport;
using namespace KivCharacterization;

class DamagedFont : public testing::Test
{
protected:
    DamagedFont() : m_content("damagedfont")
    {
        m_content.copyFont();
        m_whole = readWholeFile(m_content.fontFile());
    }

    /// What becomes of these bytes as the font of a label that is drawn.
    Outcome load(const std::string& bytes)
    {
        m_content.writeFontBytes(bytes);
        return inLimitedChild(kSeconds, [this] { return labelInChild(); });
    }

    void count(const std::string& bytes, const std::string& what)
    {
        const Outcome outcome = load(bytes);
        ++m_loads;
        ++m_counts[outcome];
        EXPECT_TRUE(outcome == LoadedAndSound || outcome == Refused)
            << what << " ends as outcome " << outcome;
    }

    void report() const
    {
        std::cout << m_loads << " fonts of " << m_whole.size() << " bytes: " << m_counts[LoadedAndSound]
                  << " loaded and sound, " << m_counts[Refused] << " refused, " << m_counts[LoadedUnsound]
                  << " accepted unsound, " << m_counts[OutOfTime] << " ran into the time limit of "
                  << kSeconds << " s, " << m_counts[Crashed] << " crashed" << std::endl;
    }

    std::string m_whole;

private:
    static constexpr unsigned int kSeconds = 2;

    /// A null entry counts as loaded: such a font gives no label.
    Outcome labelInChild() const
    {
        FontTable fonts;
        if (!loadLabelFont(m_content.fontFile().string(), fonts)) {
            return Refused;
        }
        osgText::Font* font = fonts.begin()->second.get();
        if (!font) {
            return LoadedAndSound;
        }
        const SNameLabel label = makeNameLabel(*font, "Actor 7, Zo\xC3\xAB");
        const osg::BoundingBox& box = label.text->getBoundingBox();
        const bool finite = !box.valid() || (std::isfinite(box.radius()) && box.center().valid());
        return finite ? LoadedAndSound : LoadedUnsound;
    }

    ContentFolder m_content;
    int m_loads = 0;
    int m_counts[Crashed + 1] = {};
};

TEST_F(DamagedFont, theWholeFontLoads)
{
    EXPECT_EQ(load(m_whole), LoadedAndSound);
}

TEST_F(DamagedFont, bytesThatAreNoFontAreRefused)
{
    EXPECT_EQ(load(""), Refused);
    EXPECT_EQ(load(std::string(m_whole.size(), '\0')), Refused);
}

TEST_F(DamagedFont, aFontCutAnywhereIsRefusedOrSound)
{
    const std::size_t cuts = static_cast<std::size_t>(rounds(50));
    for (std::size_t cut = 0; cut < cuts; ++cut) {
        const std::size_t length = m_whole.size() * cut / cuts;
        count(m_whole.substr(0, length), "cut to " + std::to_string(length) + " bytes");
    }
    report();
}

// Most bytes of a font are outlines of characters that the label does not draw, so the front, where the
// tables are listed, is damaged for itself.
TEST_F(DamagedFont, aCorruptFontIsRefusedOrSound)
{
    constexpr std::size_t kFront = 512;
    const int files = rounds(100);
    for (int seed = 1; seed <= files; ++seed) {
        const auto number = static_cast<unsigned int>(seed);
        const std::string damaged =
            seed % 2 == 0 ? corrupted(m_whole, number)
                          : corrupted(m_whole.substr(0, kFront), number) + m_whole.substr(kFront);
        count(damaged, "corruption " + std::to_string(seed));
    }
    report();
}

}  // namespace
