#pragma once

#ifndef NDEBUG
#include <atomic>
#endif

namespace KivCharacterization {

/// Member of every handler that points into the manager's tables. Debug builds count them, so that a manager
/// which is released before its commands can say so; in other builds there is nothing to it.
class CommandOnLoan
{
#ifndef NDEBUG
public:
    CommandOnLoan()
    {
        ++m_count;
    }
    CommandOnLoan(const CommandOnLoan&)
    {
        ++m_count;
    }
    CommandOnLoan& operator=(const CommandOnLoan&) = default;
    ~CommandOnLoan()
    {
        --m_count;
    }

    static int count()
    {
        return m_count;
    }

private:
    static inline std::atomic<int> m_count{0};
#endif
};

}  // namespace KivCharacterization
