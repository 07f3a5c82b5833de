#pragma once

#include <string>

namespace KivCharacterization {

/// The text of a failure report: `File Name: <source><TAB> Line Number: <line>"<message>"`.
/// @param source the reporting source file's path as users and support know it.
std::string formatErrorMessage(const std::string& source, int line, const std::string& message);

/// Hands such a report to the host's error sink, as its last error.
void reportError(const std::string& source, int line, const std::string& message);

}  // namespace KivCharacterization
