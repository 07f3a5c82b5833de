#include "apps/kivplayer/support/atomicfile.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace KivPlayer {

namespace {

std::string because(const std::string& what, int reason)
{
    return reason ? what + ": " + std::generic_category().message(reason) : what;
}

bool isDevice(const std::string& file)
{
    std::error_code ignored;
    const std::filesystem::file_type type = std::filesystem::status(file, ignored).type();
    return type == std::filesystem::file_type::character || type == std::filesystem::file_type::block ||
           type == std::filesystem::file_type::fifo || type == std::filesystem::file_type::socket;
}

}  // namespace

AtomicFile::AtomicFile(const std::string& goal)
    : m_goal(goal), m_temporary(isDevice(goal) ? goal : goal + ".part"), m_renamed(m_temporary != goal)
{}

AtomicFile::~AtomicFile()
{
    std::error_code ignored;
    if (m_unfinished)
        std::filesystem::remove(m_temporary, ignored);
}

std::string AtomicFile::begin()
{
    const std::filesystem::path folder = std::filesystem::path(m_goal).parent_path();
    std::error_code problem;
    if (!folder.empty())
        std::filesystem::create_directories(folder, problem);
    if (problem)
        return "cannot be written: the folder cannot be made: " + problem.message();
    errno = 0;
    if (!std::ofstream(m_temporary, std::ios::binary | std::ios::trunc))
        return because("cannot be written", errno);
    if (m_renamed)
        m_unfinished.emplace(m_temporary);
    return std::string();
}

std::string AtomicFile::putInPlace()
{
    std::error_code problem;
    if (m_renamed)
        std::filesystem::rename(m_temporary, m_goal, problem);
    if (problem)
        return "cannot be written: " + problem.message();
    m_unfinished.reset();
    return std::string();
}

std::string writeAtomically(const std::string& file, const std::function<bool(std::ostream&)>& writing)
{
    AtomicFile whole(file);
    const std::string problem = whole.begin();
    if (!problem.empty())
        return problem;
    std::ofstream stream(whole.temporary(), std::ios::binary | std::ios::trunc);
    errno = 0;
    const bool written = writing(stream);
    stream.close();
    if (!written || stream.fail())
        return because("cannot be written to its end", errno);
    return whole.putInPlace();
}

}  // namespace KivPlayer
