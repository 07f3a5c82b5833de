#pragma once

#include <initializer_list>
#include <string>

namespace KivPlayer {

/// The forms in which the player writes what it shows.
enum class FileFormat
{
    None,
    Png,
    Mp4,
    Matroska,
    WebM,
    Gif,
    Csv,
    Osgb,
    Osgt
};

enum class FileKind
{
    Picture,  ///< with {frame} in its name a sequence of pictures
    Video,
    Table,
    Scene
};

/// The format that a file's extension asks for, whatever its case; None where it asks for none of them.
FileFormat formatOf(const std::string& file);

/// @return false for None.
bool isOfKind(FileFormat format, FileKind kind);

/// The file extensions of these kinds in the table's order: ".mp4, .mkv, .webm, .gif".
/// @param last what joins the last one to those before it, such as " or ".
std::string extensionsOf(std::initializer_list<FileKind> kinds, const std::string& last = ", ");

}  // namespace KivPlayer
