#include "tests/host/KivReader/csvtable.h"

#include <cstddef>

#include "tests/support/motionlibrary.h"

namespace KivReaderTest {

namespace {

std::string takeField(const std::string& text, std::size_t& at)
{
    std::string field;
    bool quoted = false;
    for (; at < text.size() && (quoted || (text[at] != ',' && text[at] != '\n')); ++at) {
        const char byte = text[at];
        if (byte != '"')
            field += byte;
        else if (quoted && at + 1 < text.size() && text[at + 1] == '"')
            field += text[++at];
        else
            quoted = !quoted;
    }
    if (!field.empty() && field.back() == '\r')
        field.pop_back();
    return field;
}

std::vector<std::string> takeLine(const std::string& text, std::size_t& at)
{
    std::vector<std::string> fields = {takeField(text, at)};
    while (at < text.size() && text[at] == ',') {
        ++at;
        fields.push_back(takeField(text, at));
    }
    ++at;
    return fields;
}

}  // namespace

std::vector<CsvRow> readCsv(const std::filesystem::path& file)
{
    const std::string text = KivTestSupport::readWholeFile(file);
    std::size_t at = 0;
    const std::vector<std::string> heading = takeLine(text, at);
    std::vector<CsvRow> rows;
    while (at < text.size()) {
        const std::vector<std::string> fields = takeLine(text, at);
        CsvRow row;
        for (std::size_t i = 0; i < heading.size() && i < fields.size(); ++i)
            row[heading[i]] = fields[i];
        rows.push_back(row);
    }
    return rows;
}

double numberIn(const std::string& text)
{
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    double number = 0.0;
    stream >> number;
    return number;
}

}  // namespace KivReaderTest
