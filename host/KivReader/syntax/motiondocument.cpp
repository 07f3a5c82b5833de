#include "KivReader/motiondocument.h"

#include <algorithm>
#include <utility>

#include "host/KivReader/syntax/hierarchyreader.h"
#include "host/KivReader/syntax/locationfinder.h"
#include "host/KivReader/syntax/motionheaderreader.h"
#include "host/KivReader/syntax/motionrowreader.h"
#include "host/KivReader/syntax/parseerror.h"
#include "host/KivReader/syntax/positionconvention.h"
#include "host/KivReader/syntax/readingprogress.h"
#include "host/KivReader/syntax/textcursor.h"

namespace KivReader {

namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

void throwIfOtherEncoding(std::string_view text)
{
    if (text.substr(0, 2) == "\xff\xfe" || text.substr(0, 2) == "\xfe\xff")
        throw ParseError{0, "this is UTF-16; save the text as UTF-8"};
}

void throwIfEmpty(TextCursor& cursor)
{
    cursor.skipSpace();
    if (cursor.atEnd())
        throw ParseError{cursor.offset(), "empty file"};
}

/// What stands between the hierarchy and the motion's header. False: the text ends there.
bool takeMotionWord(TextCursor& cursor)
{
    const std::string_view token = cursor.peek();
    const std::size_t offset = cursor.offset();
    if (token.empty())
        return false;
    if (cursor.takeWord("MOTION"))
        return true;
    if (cursor.takeWord("ROOT"))
        throw ParseError{offset, "second ROOT " + quoted(cursor.takeRestBeforeBrace()) +
                                     "; one skeleton per file is supported"};
    throw ParseError{offset, "expected MOTION, found " + quoted(token)};
}

void warnOfCutRow(MotionDocument& document, LocationFinder& locations, const MotionRowReader& rows,
                  const MotionHeader& header)
{
    document.warnings.push_back(locations.at(
        rows.cutRowOffset(), "last frame is cut short (" + std::to_string(rows.valuesOfCutRow()) + " of " +
                                 std::to_string(document.columns) + "), dropped; Frames says " +
                                 std::to_string(header.declaredFrames) + ", file has " +
                                 std::to_string(document.frames)));
}

void warnOfFrameCount(MotionDocument& document, LocationFinder& locations, const MotionHeader& header)
{
    document.warnings.push_back(
        locations.at(header.framesOffset, "Frames says " + std::to_string(header.declaredFrames) +
                                              ", file has " + std::to_string(document.frames)));
}

void warnOfMotion(MotionDocument& document, LocationFinder& locations, const MotionHeader& header,
                  const MotionRowReader& rows)
{
    if (header.frameTimeWasZero)
        document.warnings.push_back(locations.at(header.frameTimeOffset, "frame time 0, using 1/30"));
    if (rows.lastRowIsCut())
        warnOfCutRow(document, locations, rows, header);
    else if (document.frames != header.declaredFrames)
        warnOfFrameCount(document, locations, header);
}

void readMotion(TextCursor& cursor, LocationFinder& locations, MotionDocument& document)
{
    const MotionHeader header = readMotionHeader(cursor);
    MotionRowReader rows(cursor.text(), document.columns, header.declaredFrames);
    rows.read(cursor.offset());
    document.hasMotion = true;
    document.frameTime = header.frameTime;
    document.frames = rows.rows();
    document.values = std::move(rows.values());
    detectPositionConvention(document);
    warnOfMotion(document, locations, header, rows);
}

void readText(TextCursor& cursor, LocationFinder& locations, MotionDocument& document)
{
    throwIfOtherEncoding(cursor.text());
    if (cursor.text().substr(0, kByteOrderMark.size()) == kByteOrderMark)
        cursor.moveTo(kByteOrderMark.size());
    throwIfEmpty(cursor);
    HierarchyReader(cursor, locations, document).read();
    const std::size_t hierarchyEnd = cursor.offset();
    if (const std::size_t nul = cursor.text().substr(0, hierarchyEnd).find('\0');
        nul != std::string_view::npos)
        throw ParseError{nul, "NUL byte"};
    if (takeMotionWord(cursor))
        readMotion(cursor, locations, document);
}

/// A NUL byte before the error, or anywhere in what does not even begin like a motion file, explains more
/// than the grammar's error.
ParseError withNulNamed(std::string_view text, const ParseError& error)
{
    const bool beginsWell =
        text.substr(0, error.offset).find_first_not_of(" \t\r\n\v\f\xef\xbb\xbf") != std::string_view::npos;
    const std::size_t end = beginsWell ? text.find_first_of("\r\n", error.offset) : std::string_view::npos;
    const std::size_t nul = text.substr(0, end).find('\0');
    if (nul == std::string_view::npos)
        return error;
    return {nul, "NUL byte: not a BVH text, or one in UTF-16"};
}

}  // namespace

MotionReading readMotionDocument(std::string_view text)
{
    MotionReading reading;
    LocationFinder locations(text);
    TextCursor cursor(text);
    MotionDocument document;
    try {
        readText(cursor, locations, document);
        reportReading(text.size(), text.size());
        reading.document = std::move(document);
    } catch (const ParseError& error) {
        const ParseError named = withNulNamed(text, error);
        reading.error = locations.at(named.offset, named.message);
    }
    reportReadingEnded();
    return reading;
}

}  // namespace KivReader
