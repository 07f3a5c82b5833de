#pragma once

#include <optional>
#include <string>

#include "host/KivReader/motionfigure.h"

namespace osgDB {
class Options;
}

namespace KivReader {

/// What a caller asks for in an option string, words apart by blanks: `up=y`, `up=z`, and `unit=` with the
/// scene units (centimetres) per length unit of the file. Other words belong to other readers.
struct ReadingOptions
{
    FileFrame frame;
    std::string error;  ///< why a word cannot be obeyed; empty where all can
};

/// @param options may be null.
ReadingOptions readingOptionsFrom(const osgDB::Options* options);

}  // namespace KivReader
