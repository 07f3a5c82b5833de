#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <string>

#include "KivReader/motiondocument.h"
#include "tests/host/KivReader/motiontext.h"
#include "tests/support/builtpaths.h"

#if defined(__SANITIZE_ADDRESS__)
/// glibc keeps a copy of LOCPATH for every setlocale.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:__argz_add_sep\n";
}
#endif

namespace {

class UnderACommaLocale : public testing::Test
{
protected:
    void SetUp() override
    {
        m_before = std::locale();
        m_cBefore = std::setlocale(LC_ALL, nullptr);
        setenv("LOCPATH", KivTestSupport::kLocales, 1);
        if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr)
            GTEST_SKIP() << "no comma locale: the build found no localedef, or no de_DE to make it from";
        std::locale::global(std::locale("de_DE.UTF-8"));
        char text[8];
        std::snprintf(text, sizeof(text), "%.1f", 0.5);
        ASSERT_STREQ(text, "0,5") << "the locale does not write commas, the test would prove nothing";
    }

    void TearDown() override
    {
        std::locale::global(m_before);
        std::setlocale(LC_ALL, m_cBefore.c_str());
    }

private:
    std::locale m_before;
    std::string m_cBefore;
};

TEST_F(UnderACommaLocale, numbersAreReadAndRefusedAsEverywhere)
{
    KivReaderTest::MotionText parts;
    parts.rootOffset = "OFFSET 0.5 90.25 -1.5e-1";
    parts.rows = "0.5 90 0 1.25 2 3 4 5 6\n1 91 1 7 8 9 10 11 12\n";
    const KivReader::MotionReading reading = KivReader::readMotionDocument(parts.text());
    ASSERT_TRUE(reading.document) << reading.error.text();
    EXPECT_EQ(reading.document->joints[0].offset[1], 90.25);
    EXPECT_EQ(reading.document->frameTime, 0.025);
    EXPECT_EQ(reading.document->values[3], 1.25f);

    parts.rows = "0,5 90 0 1 2 3 4 5 6\n1 91 1 7 8 9 10 11 12\n";
    EXPECT_FALSE(KivReader::readMotionDocument(parts.text()).document);
}

}  // namespace
