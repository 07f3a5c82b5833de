#include "KivCommonDef/kivfileutils.h"

#include <filesystem>
#include <system_error>

namespace KivCommonDef {

std::string KivFileUtils::GetCurrentWorkingDir()
{
    std::error_code error;
    std::string folder = std::filesystem::current_path(error).generic_string();
    if (error) {
        return std::string();
    }
    // Callers append "/Data/…": at the file system's root that must not become a double separator.
    while (!folder.empty() && folder.back() == '/') {
        folder.pop_back();
    }
    return folder;
}

}  // namespace KivCommonDef
