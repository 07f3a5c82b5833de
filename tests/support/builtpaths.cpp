#include "tests/support/builtpaths.h"

namespace KivTestSupport {

const char* const kSourceFolder = KIV_SOURCE_DIR;
const char* const kRuntimeRoot = KIV_RUNTIME_ROOT;
const char* const kLocales = KIV_TEST_LOCALES;

}  // namespace KivTestSupport
