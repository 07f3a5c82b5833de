#pragma once

#include <cstddef>
#include <vector>

#include "KivAnimation/motion.h"

namespace KivReader {

/// Looks at steps that lie behind each other in somebody else's list.
class PoseSteps
{
public:
    PoseSteps(const KivAnimation::PoseStep* first, std::size_t count) : m_first(first), m_count(count) {}
    PoseSteps(const std::vector<KivAnimation::PoseStep>& steps) : PoseSteps(steps.data(), steps.size()) {}

    const KivAnimation::PoseStep* begin() const { return m_first; }
    const KivAnimation::PoseStep* end() const { return m_first + m_count; }
    std::size_t size() const { return m_count; }
    const KivAnimation::PoseStep& operator[](std::size_t index) const { return m_first[index]; }

private:
    const KivAnimation::PoseStep* m_first;
    std::size_t m_count;
};

}  // namespace KivReader
