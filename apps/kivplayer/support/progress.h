#pragma once

#include <chrono>
#include <iosfwd>
#include <string>

namespace KivPlayer {

/// Prints the progress of a long job: on a terminal one line that is overwritten, elsewhere a line every ten
/// percent.
class Progress
{
public:
    enum class Style
    {
        Silent,
        Lines,
        Terminal
    };

    static constexpr int kErrorStream = 2;
    /// The unit that is printed: so many counts make one.
    struct Unit
    {
        const char* name = "";
        unsigned long long size = 1;
    };

    /// For jobs that mostly take less: nothing is printed before.
    static constexpr std::chrono::milliseconds kPatience{400};

    /// The style that suits a stream, by its file descriptor.
    static Style styleFor(int descriptor, bool quiet);

    Progress(std::ostream& stream, Style style, std::string job, unsigned long long total,
             std::chrono::milliseconds patience = std::chrono::milliseconds(0), Unit unit = {"", 1});
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void done(unsigned long long count);

private:
    std::ostream& m_stream;
    Style m_style;
    std::string m_job;
    unsigned long long m_total;
    std::chrono::steady_clock::time_point m_speaksFrom;
    Unit m_unit;
    unsigned m_shown = 0;  ///< percent
    bool m_lineOpen = false;
};

}  // namespace KivPlayer
