#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"

namespace KivReader {

/// A place in a text and what is to be said about it. Lines and columns count from 1; columns count bytes.
struct Diagnostic
{
    std::size_t line = 0;  ///< 0: about the text as a whole
    std::size_t column = 0;
    std::string message;

    /// "line 12, column 5: …", or the bare message where there is no line.
    KIV_READER_API std::string text() const;
};

enum class Channel : std::uint8_t
{
    Xposition,
    Yposition,
    Zposition,
    Xrotation,
    Yrotation,
    Zrotation
};

/// The channels of a joint in the file's order, six at most.
class ChannelList
{
public:
    static constexpr std::size_t kMaxSize = 6;

    using value_type = Channel;
    using const_iterator = const Channel*;

    /// For less than `kMaxSize` channels.
    void push_back(Channel channel) { m_channels[m_size++] = channel; }
    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    Channel operator[](std::size_t index) const { return m_channels[index]; }
    const Channel* begin() const { return m_channels.data(); }
    const Channel* end() const { return m_channels.data() + m_size; }

private:
    std::array<Channel, kMaxSize> m_channels{};
    std::uint8_t m_size = 0;
};

/// A motion file as it stands: the file's own names, units (degrees for angles), axes and channel order.
/// Plain data; no scene graph.
struct MotionDocument
{
    struct Joint
    {
        std::string name;          ///< an end site is called after its parent, with "End" behind
        std::int32_t parent = -1;  ///< index into joints, always smaller than the joint's own
        std::array<double, 3> offset{};
        ChannelList channels;
        std::uint32_t firstColumn = 0;  ///< of this joint's channels in a row of the table
        bool endSite = false;
        bool positionsAreDeltas = false;  ///< position channels add to the offset instead of replacing it
        std::size_t line = 0;             ///< where the joint is declared
    };

    std::vector<Joint> joints;  ///< in the file's order: parents before children, the root first
    bool hasMotion = false;     ///< false: the file ended after the hierarchy
    std::size_t columns = 0;
    std::size_t frames = 0;
    double frameTime = 0.0;     ///< seconds
    std::vector<float> values;  ///< frames × columns, row by row
    std::vector<Diagnostic> warnings;
};

/// Either a document or the reason why there is none.
struct MotionReading
{
    std::optional<MotionDocument> document;
    Diagnostic error;
};

/// Reads a BVH text. Bounded in time and memory by the text's length, whatever numbers the text declares;
/// free of the locale; safe to call from several threads.
KIV_READER_API MotionReading readMotionDocument(std::string_view text);

}  // namespace KivReader
