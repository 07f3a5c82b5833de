// Lets all tests of a program run under the locale that the variable KIV_TEST_LOCALE names.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale>

namespace {

class NamedLocale : public testing::Environment
{
public:
    void SetUp() override
    {
        const char* name = std::getenv("KIV_TEST_LOCALE");
        if (!name)
            return;
        ASSERT_NE(std::setlocale(LC_ALL, name), nullptr) << "there is no locale " << name;
        std::locale::global(std::locale(name));
        char text[8];
        std::snprintf(text, sizeof(text), "%.1f", 0.5);
        ASSERT_STREQ(text, "0,5") << "the locale does not write commas, the tests would prove nothing";
    }
};

const testing::Environment* const kEnvironment = testing::AddGlobalTestEnvironment(new NamedLocale);

}  // namespace
