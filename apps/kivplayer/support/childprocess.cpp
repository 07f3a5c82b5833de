#include "apps/kivplayer/support/childprocess.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

extern char** environ;

namespace KivPlayer {

namespace {

/// What becomes of the program's standard streams.
class Streams
{
public:
    /// @param output null: dropped
    Streams(int input, std::FILE* output, std::FILE* errors)
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_adddup2(&m_actions, input, STDIN_FILENO);
        if (output != nullptr)
            posix_spawn_file_actions_adddup2(&m_actions, fileno(output), STDOUT_FILENO);
        else
            posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_adddup2(&m_actions, fileno(errors), STDERR_FILENO);
    }
    ~Streams() { posix_spawn_file_actions_destroy(&m_actions); }
    Streams(const Streams&) = delete;
    Streams& operator=(const Streams&) = delete;

    const posix_spawn_file_actions_t* actions() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions;
};

int waitFor(pid_t process)
{
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

/// From its beginning, at most as much as a person would read.
std::string contentOf(std::FILE* file)
{
    constexpr std::size_t kMaxBytes = 65536;
    std::string content(kMaxBytes, '\0');
    std::rewind(file);
    content.resize(std::fread(content.data(), 1, content.size(), file));
    return content;
}

}  // namespace

ChildProcess::~ChildProcess()
{
    if (m_input >= 0)
        close(m_input);
    if (m_process > 0) {
        kill(m_process, SIGKILL);
        waitFor(m_process);
    }
}

int ChildProcess::start(const std::string& program, const std::vector<std::string>& arguments, Output output)
{
    // A socket in place of a pipe: writing to one whose other end is gone can be asked to answer without a
    // signal.
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return errno;
    m_input = ends[0];
    m_spErrors.reset(std::tmpfile());
    if (output == Output::Kept)
        m_spOutput.reset(std::tmpfile());
    int problem = m_spErrors && (m_spOutput || output == Output::Dropped) ? 0 : errno;
    if (!problem) {
        std::vector<char*> words{const_cast<char*>(program.c_str())};
        for (const std::string& argument : arguments)
            words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        const Streams streams(ends[1], m_spOutput.get(), m_spErrors.get());
        problem =
            posix_spawnp(&m_process, program.c_str(), streams.actions(), nullptr, words.data(), environ);
    }
    close(ends[1]);
    if (problem)
        m_process = -1;
    else
        m_running.emplace(m_process);
    return problem;
}

bool ChildProcess::write(const void* bytes, std::size_t count)
{
    const auto* rest = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t taken = send(m_input, rest, count, MSG_NOSIGNAL);
        if (taken < 0 && errno == EINTR)
            continue;
        if (taken < 0)
            return false;
        rest += taken;
        count -= static_cast<std::size_t>(taken);
    }
    return true;
}

std::string ChildProcess::finish()
{
    close(m_input);
    m_input = -1;
    const int status = waitFor(m_process);
    m_process = -1;
    m_running.reset();
    m_message = contentOf(m_spErrors.get());
    m_message.erase(std::min(m_message.find('\n'), m_message.size()));
    if (m_spOutput)
        m_output = contentOf(m_spOutput.get());
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0)
        return std::string();
    const std::string end = WIFSIGNALED(status) ? "was ended by signal " + std::to_string(WTERMSIG(status))
                                                : "ended with " + std::to_string(WEXITSTATUS(status));
    return m_message.empty() ? end : end + ": " + m_message;
}

}  // namespace KivPlayer
