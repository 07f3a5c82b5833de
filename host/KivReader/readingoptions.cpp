#include "host/KivReader/readingoptions.h"

#include <osgDB/Options>

#include <string_view>

#include "host/KivReader/numbertext.h"
#include "host/KivReader/refusal.h"
#include "host/KivReader/textcursor.h"

namespace KivReader {

namespace {

bool takeUpAxis(std::string_view value, FileFrame& frame)
{
    const bool isZ = sameWord(value, "z");
    frame.up = isZ ? UpAxis::Z : UpAxis::Y;
    return isZ || sameWord(value, "y");
}

bool takeUnit(std::string_view value, FileFrame& frame)
{
    return readWholeNumber(value, frame.unit) && frame.unit > 0.0;
}

/// @return false for a value that cannot be obeyed.
bool takeWord(std::string_view word, FileFrame& frame)
{
    const std::size_t sign = word.find('=');
    if (sign == std::string_view::npos)
        return true;
    const std::string_view value = word.substr(sign + 1);
    if (word.substr(0, sign) == "up")
        return takeUpAxis(value, frame);
    if (word.substr(0, sign) == "unit")
        return takeUnit(value, frame);
    return true;
}

}  // namespace

ReadingOptions readingOptionsFrom(const osgDB::Options* options)
{
    ReadingOptions wanted;
    if (options == nullptr)
        return wanted;
    const std::string& text = options->getOptionString();
    TextCursor cursor(text);
    for (std::string_view word = cursor.take(); !word.empty() && wanted.error.empty(); word = cursor.take()) {
        if (!takeWord(word, wanted.frame))
            wanted.error = "reading option " + quoted(word) + " cannot be obeyed";
    }
    return wanted;
}

}  // namespace KivReader
