#pragma once

#include <string>

#include "KivCommonDef/sharedlibrary.h"

namespace KivCommonDef {

class KIV_COMMONDEF_API KivFileUtils
{
public:
    /// The process's working directory without a closing separator; empty if it cannot be told.
    static std::string GetCurrentWorkingDir();
};

}  // namespace KivCommonDef
