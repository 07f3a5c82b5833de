#include "KivReader/readerwriterbvh.h"

#include <exception>
#include <mutex>
#include <stdexcept>
#include <utility>

#include "KivReader/motiondocument.h"
#include "host/KivReader/profiledfigure.h"
#include "host/KivReader/skeletonbuilder.h"

namespace KivReader {

namespace {

struct DefaultOptions
{
    std::mutex mutex;
    osg::ref_ptr<const osgDB::Options> options;
};

DefaultOptions& defaultOptions()
{
    static DefaultOptions s_defaults;
    return s_defaults;
}

osg::ref_ptr<const osgDB::Options> optionsFor(const osgDB::Options* options)
{
    if (options != nullptr)
        return options;
    DefaultOptions& defaults = defaultOptions();
    const std::lock_guard<std::mutex> lock(defaults.mutex);
    return defaults.options;
}

std::string& errorOfThisThread()
{
    thread_local std::string s_error;
    return s_error;
}

ProfileRecord& profileOfThisThread()
{
    thread_local ProfileRecord s_profile;
    return s_profile;
}

ProfileOptions wantedFrom(const osgDB::Options* options)
{
    std::string error;
    const ProfileOptions wanted =
        profileOptionsFrom(options == nullptr ? std::string() : options->getOptionString(), error);
    if (!error.empty())
        throw std::runtime_error(error);
    return wanted;
}

KivAnimation::MotionTable takeTable(MotionDocument& document)
{
    KivAnimation::MotionTable table;
    table.values = std::move(document.values);
    table.columns = document.columns;
    table.frames = document.frames;
    table.frameTime = document.frameTime;
    return table;
}

/// Throws std::runtime_error with the reason where there is nothing to build.
MotionDocument documentFrom(const std::string& text)
{
    MotionReading reading = readMotionDocument(text);
    if (!reading.document)
        throw std::runtime_error(reading.error.text());
    return std::move(*reading.document);
}

BuiltSkeleton readSkeleton(const std::string& text, const osgDB::Options* options, std::string& name,
                           bool qualifyNames)
{
    const ProfileOptions wanted = wantedFrom(optionsFor(options).get());
    MotionDocument document = documentFrom(text);
    ProfiledFigure profiled = makeProfiledFigure(document, wanted);
    if (name.empty())
        name = profiled.figure.joints.front().name;
    BuiltSkeleton built =
        buildSkeleton(profiled.figure, takeTable(document), qualifyNames ? name : std::string());
    profileOfThisThread() = std::move(profiled.record);
    built.node->setName(name);
    built.animation->setName(name);
    return built;
}

}  // namespace

bool ReaderWriterBVH::readBVHNode(const std::string& text, const osgDB::Options* options, osg::Node** node,
                                  KivAnimation::Animation** animation, std::string& name, bool qualifyNames)
{
    errorOfThisThread().clear();
    profileOfThisThread() = ProfileRecord();
    if (node == nullptr || animation == nullptr) {
        errorOfThisThread() = "no place for the node and the animation";
        return false;
    }
    try {
        std::string qualifier = name;
        BuiltSkeleton built = readSkeleton(text, options, qualifier, qualifyNames);
        name = std::move(qualifier);
        *node = built.node.release();
        *animation = built.animation.release();
        return true;
    } catch (const std::exception& failure) {
        errorOfThisThread() = failure.what();
        return false;
    }
}

void ReaderWriterBVH::resetKivReader()
{
    errorOfThisThread().clear();
    profileOfThisThread() = ProfileRecord();
}

std::string ReaderWriterBVH::lastError()
{
    return errorOfThisThread();
}

ProfileRecord ReaderWriterBVH::lastProfile()
{
    return profileOfThisThread();
}

void ReaderWriterBVH::setDefaultOptions(const osgDB::Options* options)
{
    DefaultOptions& defaults = defaultOptions();
    const std::lock_guard<std::mutex> lock(defaults.mutex);
    defaults.options = options;
}

}  // namespace KivReader
