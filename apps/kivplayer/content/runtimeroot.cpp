#include "apps/kivplayer/content/runtimeroot.h"

#include <filesystem>
#include <system_error>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace KivPlayer {

namespace {

std::filesystem::path programFolder()
{
#if defined(_WIN32)
    wchar_t name[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, name, MAX_PATH);
    return std::filesystem::path(name).parent_path();
#else
    std::error_code problem;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", problem);
    return problem ? std::filesystem::current_path(problem) : program.parent_path();
#endif
}

}  // namespace

std::string findRuntimeRoot()
{
    const std::filesystem::path above = programFolder().parent_path();
    const std::filesystem::path built = above / "root";
    const std::filesystem::path installed = above / "share" / "kivcharacterization";
    std::error_code problem;
    for (const std::filesystem::path& place : {built, installed})
        if (std::filesystem::is_directory(place / "Data", problem))
            return place.string();
    return built.string();
}

}  // namespace KivPlayer
