#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "KivReader/motiondocument.h"
#include "host/KivReader/syntax/locationfinder.h"
#include "host/KivReader/syntax/textcursor.h"

namespace KivReader {

constexpr std::size_t kMaxDepth = 512;
constexpr std::size_t kMaxJoints = 4096;  ///< end sites are counted by themselves, up to the same number
/// Bytes. A name is repeated for every end site of its joint, so a long one would take far more memory than
/// its text.
constexpr std::size_t kMaxNameLength = 4096;

/// Reads the tree of joints, one function per rule of the grammar. The nesting is kept in a list of open
/// blocks, so no depth of a text reaches the call stack. Throws ParseError.
class HierarchyReader
{
public:
    HierarchyReader(TextCursor& cursor, LocationFinder& locations, MotionDocument& document);

    /// From the word HIERARCHY to the brace that closes the root.
    void read();

private:
    struct Block
    {
        std::int32_t joint = 0;
        bool hasOffset = false;
        bool hasChannels = false;
    };

    void readRoot();
    void readBlockItem();
    [[noreturn]] void throwUnexpectedItem(std::size_t offset, std::string_view token) const;
    void readJoint(std::size_t offset);
    void readEndSite(std::size_t offset);
    void readOffset(std::size_t offset);
    void readChannels(std::size_t offset);
    std::size_t readChannelCount(std::size_t offset);
    bool takeCommonChannel();
    void addChannel(std::optional<Channel> channel, std::string_view token);
    void closeBlock(std::size_t offset);

    std::string_view takeName(std::size_t offset);
    MotionDocument::Joint& addJoint(std::size_t offset, std::string name);
    void warnAboutDuplicateNames();
    bool mayHaveDuplicateNames() const;

    MotionDocument::Joint& current()
    {
        return m_document.joints[static_cast<std::size_t>(m_open.back().joint)];
    }

    TextCursor& m_cursor;
    LocationFinder& m_locations;
    MotionDocument& m_document;
    std::vector<Block> m_open;
    std::vector<std::size_t> m_declarations;  ///< offset of each joint's declaration
    std::size_t m_endSites = 0;
};

}  // namespace KivReader
