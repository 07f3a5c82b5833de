#include "apps/kivplayer/window/statefile.h"

#include <filesystem>
#include <fstream>

namespace KivPlayer {

namespace {

constexpr double kInterval = 0.1;  // seconds

}  // namespace

bool StateFile::isDue(double seconds)
{
    if (!isWanted() || seconds - m_written < kInterval)
        return false;
    m_written = seconds;
    return true;
}

bool StateFile::write(const nlohmann::ordered_json& state)
{
    const std::string draft = m_file + ".part";
    std::ofstream stream(draft, std::ios::binary | std::ios::trunc);
    stream << state.dump(1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
    stream.close();
    std::error_code problem;
    if (!stream.fail())
        std::filesystem::rename(draft, m_file, problem);
    return !stream.fail() && !problem;
}

}  // namespace KivPlayer
