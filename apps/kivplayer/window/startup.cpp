#include "apps/kivplayer/window/startup.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>

#if defined(__linux__)
#include <unistd.h>
#endif

namespace KivPlayer {

namespace {

using Clock = std::chrono::steady_clock;

/// Seconds that the process had run when this was first asked; 0 where the system does not tell.
double ageOfProcess()
{
#if defined(__linux__)
    std::ifstream upTime("/proc/uptime");
    std::ifstream status("/proc/self/stat");
    double now = 0.0;
    std::string text;
    // The start is the 20th number after the name, which may hold anything up to the last bracket.
    if (upTime >> now && std::getline(status, text) && text.rfind(')') != std::string::npos) {
        std::istringstream fields(text.substr(text.rfind(')') + 1));
        std::string skipped;
        for (int i = 0; i < 19; ++i)
            fields >> skipped;
        double ticks = 0.0;
        if (fields >> ticks)
            return now - ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
    }
#endif
    return 0.0;
}

double secondsSinceStart()
{
    static const double age = ageOfProcess();
    static const Clock::time_point first = Clock::now();
    return age + std::chrono::duration<double>(Clock::now() - first).count();
}

}  // namespace

void StartUp::reached(const std::string& part)
{
    m_parts.emplace_back(part, secondsSinceStart());
}

std::string StartUp::text() const
{
    std::string all;
    for (const auto& [part, seconds] : m_parts) {
        char time[32];
        std::snprintf(time, sizeof time, " %.2f s", seconds);
        all += (all.empty() ? "" : ", ") + part + time;
    }
    return all;
}

StartUp& startUp()
{
    static StartUp one;
    return one;
}

}  // namespace KivPlayer
