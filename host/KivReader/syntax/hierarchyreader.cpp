#include "host/KivReader/syntax/hierarchyreader.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <unordered_map>
#include <utility>

#include "host/KivReader/syntax/channelname.h"
#include "host/KivReader/syntax/jointname.h"
#include "host/KivReader/syntax/numbertext.h"
#include "host/KivReader/syntax/parseerror.h"

namespace KivReader {

namespace {

constexpr std::size_t kTypicalJoints = 96;  ///< with their end sites, of a figure with fingers

/// Words and signs that can only begin the next item of a block.
enum class Item
{
    None,
    Offset,
    Channels,
    Joint,
    EndSite,
    BlockEnd,
    Misplaced  ///< what belongs elsewhere
};

Item itemOf(std::string_view token)
{
    const auto isWord = [token](std::string_view word, Item item) {
        return sameWord(token, word) ? item : Item::None;
    };
    switch (token.size()) {
        case 0:
            return Item::Misplaced;
        case 1:
            return token == "}" ? Item::BlockEnd : token == "{" ? Item::Misplaced : Item::None;
        case 3:
            return isWord("End", Item::EndSite);
        case 4:
            return isWord("ROOT", Item::Misplaced);
        case 5:
            return isWord("JOINT", Item::Joint);
        case 6:
            return sameWord(token, "OFFSET") ? Item::Offset : isWord("MOTION", Item::Misplaced);
        case 8:
            return isWord("CHANNELS", Item::Channels);
        default:
            return Item::None;
    }
}

bool beginsAnItem(std::string_view token)
{
    return itemOf(token) != Item::None;
}

std::string found(std::string_view token)
{
    return token.empty() ? "found the end of the text" : "found " + quoted(token);
}

}  // namespace

HierarchyReader::HierarchyReader(TextCursor& cursor, LocationFinder& locations, MotionDocument& document)
    : m_cursor(cursor), m_locations(locations), m_document(document)
{
    m_document.joints.reserve(kTypicalJoints);
    m_declarations.reserve(kTypicalJoints);
    m_open.reserve(kTypicalJoints);
}

void HierarchyReader::read()
{
    if (!m_cursor.takeWord("HIERARCHY"))
        throw ParseError{m_cursor.offset(), "not a BVH text: expected HIERARCHY, " + found(m_cursor.peek())};
    readRoot();
    while (!m_open.empty())
        readBlockItem();
    warnAboutDuplicateNames();
}

void HierarchyReader::readRoot()
{
    const std::string_view token = m_cursor.peek();
    const std::size_t offset = m_cursor.offset();
    if (!m_cursor.takeWord("ROOT"))
        throw ParseError{offset, "expected ROOT, " + found(token)};
    readJoint(offset);
}

void HierarchyReader::readBlockItem()
{
    const std::string_view token = m_cursor.take();
    const std::size_t offset = m_cursor.offset() - token.size();
    switch (itemOf(token)) {
        case Item::Offset:
            return readOffset(offset);
        case Item::Channels:
            return readChannels(offset);
        case Item::Joint:
            return readJoint(offset);
        case Item::EndSite:
            return readEndSite(offset);
        case Item::BlockEnd:
            return closeBlock(offset);
        default:
            throwUnexpectedItem(offset, token);
    }
}

void HierarchyReader::throwUnexpectedItem(std::size_t offset, std::string_view token) const
{
    const std::string unclosed = " before " + std::to_string(m_open.size()) + " block(s) were closed";
    if (sameWord(token, "MOTION"))
        throw ParseError{offset, "MOTION" + unclosed};
    if (token.empty())
        throw ParseError{offset, "the text ends" + unclosed};
    throw ParseError{offset, "expected OFFSET, CHANNELS, JOINT, End Site or '}', " + found(token)};
}

void HierarchyReader::readJoint(std::size_t offset)
{
    std::string name = jointNameFrom(takeName(offset));
    if (name.empty())
        throw ParseError{offset, "a joint without a name"};
    if (name.size() > kMaxNameLength)
        throw ParseError{offset, "the name " + quoted(name) + " has more than " +
                                     std::to_string(kMaxNameLength) + " bytes"};
    if (m_open.size() == kMaxDepth)
        throw ParseError{offset, "joints nested deeper than " + std::to_string(kMaxDepth)};
    if (m_document.joints.size() - m_endSites == kMaxJoints)
        throw ParseError{offset, "more than " + std::to_string(kMaxJoints) + " joints"};
    addJoint(offset, std::move(name));
}

void HierarchyReader::readEndSite(std::size_t offset)
{
    const std::string_view rest = takeName(offset);
    if (!startsWithWord(rest, "Site"))
        throw ParseError{offset, "expected 'End Site', found " + quoted("End " + std::string(rest))};
    if (m_endSites == kMaxJoints)
        throw ParseError{offset, "more than " + std::to_string(kMaxJoints) + " end sites"};
    addJoint(offset, current().name + "End").endSite = true;
    ++m_endSites;
}

std::string_view HierarchyReader::takeName(std::size_t offset)
{
    if (!m_open.empty() && current().endSite)
        throw ParseError{offset, "an end site holds no further joints"};
    return m_cursor.takeRestBeforeBrace();
}

/// With the name the declaration's line ends, or its block begins.
MotionDocument::Joint& HierarchyReader::addJoint(std::size_t offset, std::string name)
{
    MotionDocument::Joint& joint = m_document.joints.emplace_back();
    joint.name = std::move(name);
    joint.parent = m_open.empty() ? -1 : m_open.back().joint;
    joint.line = m_cursor.line();
    joint.firstColumn = static_cast<std::uint32_t>(m_document.columns);
    if (m_cursor.peek() != "{")
        throw ParseError{m_cursor.offset(),
                         "expected '{' after the name " + quoted(joint.name) + ", " + found(m_cursor.peek())};
    m_cursor.take();
    Block block;
    block.joint = static_cast<std::int32_t>(m_document.joints.size() - 1);
    m_declarations.push_back(offset);
    m_open.push_back(block);
    return joint;
}

void HierarchyReader::closeBlock(std::size_t offset)
{
    if (!m_open.back().hasOffset)
        throw ParseError{offset, "no OFFSET in the block of " + quoted(current().name)};
    m_open.pop_back();
}

void HierarchyReader::readOffset(std::size_t offset)
{
    if (std::exchange(m_open.back().hasOffset, true))
        throw ParseError{offset, "a second OFFSET in the block of " + quoted(current().name)};
    constexpr double kLargest = std::numeric_limits<float>::max();  // beyond it no joint can be posed
    std::size_t numbers = 0;
    for (double value = 0.0; takeNumber(m_cursor, kLargest, value); ++numbers) {
        if (numbers < 3)
            current().offset[numbers] = value;
    }
    if (!beginsAnItem(m_cursor.peek()))
        throw notANumber(m_cursor.offset(), m_cursor.peek());
    if (numbers != 3)
        throw ParseError{offset, "OFFSET needs 3 numbers, found " + std::to_string(numbers)};
}

std::size_t HierarchyReader::readChannelCount(std::size_t offset)
{
    const std::string_view token = m_cursor.peek();
    if (beginsAnItem(token))
        throw ParseError{offset, "CHANNELS without a count"};
    const std::size_t countOffset = m_cursor.offset();
    m_cursor.take();
    if (token.size() != 1 || token.front() < '0' ||
        token.front() > '0' + static_cast<int>(ChannelList::kMaxSize))
        throw ParseError{countOffset, "CHANNELS count " + quoted(token) + " is not 0.." +
                                          std::to_string(ChannelList::kMaxSize)};
    return static_cast<std::size_t>(token.front() - '0');
}

void HierarchyReader::readChannels(std::size_t offset)
{
    if (std::exchange(m_open.back().hasChannels, true))
        throw ParseError{offset, "a second CHANNELS in the block of " + quoted(current().name)};
    const std::size_t count = readChannelCount(offset);
    if (current().endSite && count > 0)
        throw ParseError{offset, "an end site has no channels"};
    current().firstColumn = static_cast<std::uint32_t>(m_document.columns);
    std::size_t listed = 0;
    while (listed < count && takeCommonChannel())
        ++listed;
    for (; !beginsAnItem(m_cursor.peek()); ++listed) {
        if (listed < count)
            addChannel(channelNamed(m_cursor.peek()), m_cursor.peek());
        else if (!channelNamed(m_cursor.peek()))
            break;
        m_cursor.take();
    }
    if (listed != count)
        throw ParseError{offset,
                         "CHANNELS says " + std::to_string(count) + " but lists " + std::to_string(listed)};
    m_document.columns += count;
}

/// Most names are known by their length: they are taken without looking for their end first.
bool HierarchyReader::takeCommonChannel()
{
    m_cursor.skipSpace();
    const std::string_view rest = m_cursor.rest();
    const std::optional<Channel> channel = channelBeginning(rest);
    if (!channel)
        return false;
    addChannel(channel, rest.substr(0, kChannelNameLength));
    m_cursor.moveTo(m_cursor.offset() + kChannelNameLength);
    return true;
}

void HierarchyReader::addChannel(std::optional<Channel> channel, std::string_view token)
{
    if (!channel)
        throw ParseError{m_cursor.offset(), "unknown channel " + quoted(token)};
    ChannelList& channels = current().channels;
    if (isPosition(*channel) && std::find(channels.begin(), channels.end(), *channel) != channels.end())
        throw ParseError{m_cursor.offset(), "channel " + quoted(token) + " is listed twice"};
    channels.push_back(*channel);
}

void HierarchyReader::warnAboutDuplicateNames()
{
    if (!mayHaveDuplicateNames())
        return;
    std::unordered_map<std::string_view, std::size_t> firstLines;
    for (std::size_t i = 0; i < m_document.joints.size(); ++i) {
        const MotionDocument::Joint& joint = m_document.joints[i];
        if (joint.endSite)
            continue;
        const auto [first, isNew] = firstLines.emplace(joint.name, joint.line);
        if (!isNew)
            m_document.warnings.push_back(m_locations.at(
                m_declarations[i], "duplicate joint names: " + quoted(joint.name) + " is declared in line " +
                                       std::to_string(first->second) + " already"));
    }
}

/// Never false where two names are equal: then their hashes are, too.
bool HierarchyReader::mayHaveDuplicateNames() const
{
    std::vector<std::size_t> hashes;
    hashes.reserve(m_document.joints.size());
    for (const MotionDocument::Joint& joint : m_document.joints) {
        if (!joint.endSite)
            hashes.push_back(std::hash<std::string>()(joint.name));
    }
    std::sort(hashes.begin(), hashes.end());
    return std::adjacent_find(hashes.begin(), hashes.end()) != hashes.end();
}

}  // namespace KivReader
