#include <dlfcn.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "tests/soak/moduleprobe.h"
#include "tests/support/builtpaths.h"
#include "tests/support/contentfolder.h"
#include "tests/support/motionlibrary.h"

#if defined(__SANITIZE_ADDRESS__)
// The host's singletons are never destroyed, because threads may still ask for them while a program ends. A
// library that is closed takes the last pointer to its own along; that is known, and not what this test looks
// for.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options();
extern "C" const char* __asan_default_options()
{
    return "detect_leaks=0";
}
#endif

namespace {

bool isMapped(const std::string& library)
{
    return KivTestSupport::readWholeFile("/proc/self/maps").find(library) != std::string::npos;
}

TEST(Reload, theWholeProgramComesAndGoesAHundredTimes)
{
    for (int round = 0; round < 100; ++round) {
        void* library = dlopen(KIV_PROBE_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library, nullptr) << dlerror();
        const auto probe = reinterpret_cast<decltype(&runProbe)>(dlsym(library, "runProbe"));
        ASSERT_NE(probe, nullptr) << dlerror();
        ASSERT_EQ(probe(KivTestSupport::kRuntimeRoot), 0) << "in round " << round;
        ASSERT_TRUE(isMapped("libKivCharacterization"));
        ASSERT_EQ(dlclose(library), 0) << dlerror();
        ASSERT_FALSE(isMapped("libKivCharacterization")) << "the module stays in memory after its last user";
    }
}

}  // namespace
