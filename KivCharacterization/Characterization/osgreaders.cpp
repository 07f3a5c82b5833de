#include "KivCharacterization/Characterization/osgreaders.h"

#include <osg/Notify>
#include <osgDB/FileUtils>
#include <osgDB/Registry>
#include <osgDB/fstream>

#include <exception>

#include "KivCharacterization/Characterization/scenedefect.h"

namespace KivCharacterization {

namespace {

using ReadResult = osgDB::ReaderWriter::ReadResult;

constexpr std::streamoff kLargestScene = 1024 * 1024 * 1024;

ReadResult failure(const std::string& path, const std::string& reason)
{
    OSG_WARN << path << ": " << reason << std::endl;
    return ReadResult(path + ": " + reason);
}

/// Finds the plugin, keeps its exceptions in and asks for an object behind every success.
template <typename Read>
ReadResult readWithPlugin(const std::string& path, const char* extension, Read&& read)
{
    // The plugins would search other folders for a missing file's bare name.
    if (osgDB::fileType(path) != osgDB::REGULAR_FILE) {
        return ReadResult(ReadResult::FILE_NOT_FOUND);
    }
    osgDB::ReaderWriter* plugin = osgDB::Registry::instance()->getReaderWriterForExtension(extension);
    if (!plugin) {
        return failure(path, std::string("OpenSceneGraph's plugin for .") + extension + " is not installed");
    }
    try {
        ReadResult result = read(*plugin);
        return result.success() && !result.getObject() ? failure(path, "the file holds no object") : result;
    } catch (const std::exception& exception) {
        return failure(path, exception.what());
    }
}

}  // namespace

ReadResult ReaderWriterIVE::readNode(const std::string& path,
                                     const osgDB::ReaderWriter::Options* options) const
{
    return readWithPlugin(path, "ive", [&](osgDB::ReaderWriter& plugin) {
        osgDB::ifstream file(path.c_str(), std::ios::binary | std::ios::ate);
        const std::streamoff size = file.tellg();
        if (size <= 0 || size > kLargestScene) {
            return failure(path, size > 0 ? "the file is too large" : "the file is empty");
        }
        ReadResult result = plugin.readNode(path, options);
        if (result.success() && result.getNode()) {
            const std::string defect = sceneDefect(*result.getNode());
            if (!defect.empty()) {
                return failure(path, defect);
            }
        }
        return result;
    });
}

ReadResult ReaderWriterFreeType::readObject(const std::string& path,
                                            const osgDB::ReaderWriter::Options* options) const
{
    return readWithPlugin(path, "ttf",
                          [&](osgDB::ReaderWriter& plugin) { return plugin.readObject(path, options); });
}

}  // namespace KivCharacterization
