#include "apps/kivplayer/window/inspection/statefile.h"

#include <ostream>

#include "apps/kivplayer/support/atomicfile.h"

namespace KivPlayer {

namespace {

constexpr double kWriteInterval = 0.1;  // seconds

}  // namespace

bool StateFile::isDue(double seconds)
{
    if (!isWanted() || seconds - m_written < kWriteInterval)
        return false;
    m_written = seconds;
    return true;
}

std::string StateFile::write(const nlohmann::ordered_json& state) const
{
    return writeAtomically(m_file, [&state](std::ostream& stream) {
        stream << state.dump(1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
        return stream.good();
    });
}

}  // namespace KivPlayer
