#include "host/KivReader/syntax/motionheaderreader.h"

#include <limits>

#include "host/KivReader/syntax/numbertext.h"
#include "host/KivReader/syntax/parseerror.h"

namespace KivReader {

namespace {

constexpr double kFrameTimeForZero = 1.0 / 30.0;

/// Takes a word that white space, a colon or a number may follow.
bool takeKeyword(TextCursor& cursor, std::string_view word)
{
    const std::string_view token = cursor.peek();
    if (!startsWithWord(token, word))
        return false;
    const char next = token.size() > word.size() ? token[word.size()] : ':';
    if ((next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z'))
        return false;
    cursor.moveTo(cursor.offset() + word.size());
    return true;
}

void takeColon(TextCursor& cursor)
{
    if (!cursor.peek().empty() && cursor.peek().front() == ':')
        cursor.moveTo(cursor.offset() + 1);
}

bool takeFrameWord(TextCursor& cursor)
{
    return takeKeyword(cursor, "Frames") || takeKeyword(cursor, "Frame");
}

/// Some write the two words as one.
bool takeFrameTimeWords(TextCursor& cursor)
{
    return takeKeyword(cursor, "FrameTime") || takeKeyword(cursor, "FramesTime") ||
           (takeFrameWord(cursor) && takeKeyword(cursor, "Time"));
}

[[noreturn]] void throwExpected(TextCursor& cursor, const char* what)
{
    const std::string_view token = cursor.peek();
    throw ParseError{cursor.offset(),
                     std::string("expected ") + what +
                         (token.empty() ? ", found the end of the text" : ", found " + quoted(token))};
}

std::uint64_t readFrameCount(TextCursor& cursor)
{
    const std::string_view token = cursor.peek();
    if (token.empty() || token.find_first_not_of("0123456789") != std::string_view::npos)
        throw ParseError{cursor.offset(), "bad frame count " + quoted(token)};
    cursor.take();
    constexpr std::uint64_t kLargest = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t count = 0;
    for (const char digit : token) {
        const auto value = static_cast<std::uint64_t>(digit - '0');
        if (count > (kLargest - value) / 10)
            return kLargest;
        count = count * 10 + value;
    }
    return count;
}

void readFrameTime(TextCursor& cursor, MotionHeader& header)
{
    const std::string_view token = cursor.peek();
    header.frameTimeOffset = cursor.offset();
    if (!readWholeNumber(token, header.frameTime))
        throw notANumber(cursor.offset(), token);
    if (header.frameTime < 0.0)
        throw ParseError{cursor.offset(), "negative frame time " + quoted(token)};
    cursor.take();
    header.frameTimeWasZero = header.frameTime == 0.0;
    if (header.frameTimeWasZero)
        header.frameTime = kFrameTimeForZero;
}

}  // namespace

MotionHeader readMotionHeader(TextCursor& cursor)
{
    MotionHeader header;
    cursor.skipSpace();
    header.framesOffset = cursor.offset();
    if (!takeFrameWord(cursor))
        throwExpected(cursor, "'Frames:'");
    takeColon(cursor);
    header.declaredFrames = readFrameCount(cursor);
    cursor.skipSpace();
    if (!takeFrameTimeWords(cursor))
        throwExpected(cursor, "'Frame Time:'");
    takeColon(cursor);
    readFrameTime(cursor, header);
    return header;
}

}  // namespace KivReader
