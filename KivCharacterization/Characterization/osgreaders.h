#pragma once

#include <osgDB/ReaderWriter>

#include <string>

namespace KivCharacterization {

/// Readers of one file format each, used directly and not through a registry read: nothing is cached and
/// nothing else is tried. A result counts as loaded only if it holds an object; an exception out of the
/// plugin becomes an error result. Paths are taken as they are.

/// OpenSceneGraph's binary scenes. Refuses a file that is empty or larger than a gigabyte, and a scene that
/// drawing or copying could not survive (see sceneDefect).
class ReaderWriterIVE
{
public:
    osgDB::ReaderWriter::ReadResult readNode(const std::string& path,
                                             const osgDB::ReaderWriter::Options* options) const;
};

/// Font files.
class ReaderWriterFreeType
{
public:
    osgDB::ReaderWriter::ReadResult readObject(const std::string& path,
                                               const osgDB::ReaderWriter::Options* options) const;
};

}  // namespace KivCharacterization
