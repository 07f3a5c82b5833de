#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace KivReaderTest {

/// A row of a table with a heading line, by column name.
using CsvRow = std::map<std::string, std::string>;

/// Reads comma-separated values; a field may stand in double quotes, doubled inside.
std::vector<CsvRow> readCsv(const std::filesystem::path& file);

/// A number as tables have it, whatever the locale.
double numberIn(const std::string& text);

}  // namespace KivReaderTest
