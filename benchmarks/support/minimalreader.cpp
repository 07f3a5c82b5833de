#include "benchmarks/support/minimalreader.h"

#include <fast_float/fast_float.h>

#include <stdexcept>

namespace KivBenchmark {

namespace {

class Words
{
public:
    explicit Words(std::string_view text) : m_at(text.data()), m_end(text.data() + text.size()) {}

    bool skipSpace()
    {
        while (m_at != m_end && *m_at <= ' ')
            ++m_at;
        return m_at != m_end;
    }

    std::string_view word()
    {
        skipSpace();
        const char* const begin = m_at;
        while (m_at != m_end && *m_at > ' ')
            ++m_at;
        return {begin, static_cast<std::size_t>(m_at - begin)};
    }

    template <typename Number>
    Number number()
    {
        skipSpace();
        Number value{};
        const auto result = fast_float::from_chars(m_at, m_end, value);
        if (result.ec != std::errc())
            throw std::runtime_error("the minimal reader expects a well-formed text");
        m_at = result.ptr;
        return value;
    }

private:
    const char* m_at;
    const char* m_end;
};

void readHierarchy(Words& words, MinimalMotion& motion)
{
    std::vector<std::int32_t> open;
    for (std::string_view word = words.word(); !word.empty(); word = words.word()) {
        if (word == "ROOT" || word == "JOINT" || word == "End") {
            MinimalMotion::Joint joint;
            const std::string_view name = words.word();
            joint.name = word == "End" ? std::string_view() : name;
            joint.parent = open.empty() ? -1 : open.back();
            motion.joints.push_back(std::move(joint));
        } else if (word == "{") {
            open.push_back(static_cast<std::int32_t>(motion.joints.size()) - 1);
        } else if (word == "OFFSET") {
            for (double& component : motion.joints.back().offset)
                component = words.number<double>();
        } else if (word == "CHANNELS") {
            std::vector<std::string_view>& channels = motion.joints.back().channels;
            channels.resize(static_cast<std::size_t>(words.number<double>()));
            for (std::string_view& channel : channels)
                channel = words.word();
            motion.columns += channels.size();
        } else if (word == "}") {
            open.pop_back();
            if (open.empty())
                return;
        }
    }
}

}  // namespace

MinimalMotion readMinimal(std::string_view text)
{
    Words words(text);
    MinimalMotion motion;
    readHierarchy(words, motion);
    if (words.word() != "MOTION")
        return motion;
    words.word();  // Frames:
    motion.frames = static_cast<std::size_t>(words.number<double>());
    words.word();  // Frame
    words.word();  // Time:
    motion.frameTime = words.number<double>();
    motion.values.resize(motion.frames * motion.columns);
    for (float& value : motion.values)
        value = words.number<float>();
    return motion;
}

}  // namespace KivBenchmark
