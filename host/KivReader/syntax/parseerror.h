#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace KivReader {

/// Thrown inside the reader where a text cannot be read. Never leaves the library: line and column are found,
/// and a Diagnostic made, only where it is caught.
struct ParseError
{
    std::size_t offset = 0;  ///< bytes from the beginning of the text
    std::string message;
};

/// A piece of the text as a message shows it: in single quotes, cut to a readable length, control characters
/// and bytes that are no UTF-8 as escapes.
std::string quoted(std::string_view piece);

}  // namespace KivReader
