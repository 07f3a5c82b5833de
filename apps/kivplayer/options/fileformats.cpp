#include "apps/kivplayer/options/fileformats.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <vector>

namespace KivPlayer {

namespace {

struct FormatRow
{
    FileFormat format;
    const char* extension;
    FileKind kind;
};

/// The one table of what can be written: the check of options, the help and the writers all ask here.
constexpr std::array<FormatRow, 8> kFormats{{{FileFormat::Png, ".png", FileKind::Picture},
                                             {FileFormat::Mp4, ".mp4", FileKind::Video},
                                             {FileFormat::Matroska, ".mkv", FileKind::Video},
                                             {FileFormat::WebM, ".webm", FileKind::Video},
                                             {FileFormat::Gif, ".gif", FileKind::Video},
                                             {FileFormat::Csv, ".csv", FileKind::Table},
                                             {FileFormat::Osgb, ".osgb", FileKind::Scene},
                                             {FileFormat::Osgt, ".osgt", FileKind::Scene}}};

std::string lowerCaseExtension(const std::string& file)
{
    std::string extension = std::filesystem::path(file).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return extension;
}

}  // namespace

FileFormat formatOf(const std::string& file)
{
    const std::string extension = lowerCaseExtension(file);
    for (const FormatRow& row : kFormats)
        if (extension == row.extension)
            return row.format;
    return FileFormat::None;
}

bool isOfKind(FileFormat format, FileKind kind)
{
    return std::any_of(kFormats.begin(), kFormats.end(),
                       [&](const FormatRow& row) { return row.format == format && row.kind == kind; });
}

std::string extensionsOf(std::initializer_list<FileKind> kinds, const std::string& last)
{
    std::vector<std::string> extensions;
    for (const FormatRow& row : kFormats)
        if (std::find(kinds.begin(), kinds.end(), row.kind) != kinds.end())
            extensions.emplace_back(row.extension);
    std::string text;
    for (std::size_t i = 0; i < extensions.size(); ++i) {
        const bool isLast = i + 1 == extensions.size();
        text += (i == 0 ? "" : isLast ? last : ", ") + extensions[i];
    }
    return text;
}

}  // namespace KivPlayer
