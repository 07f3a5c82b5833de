#include "KivReader/readerwriterbvh.h"

#include <exception>
#include <mutex>
#include <stdexcept>
#include <utility>

#include "KivReader/motiondocument.h"
#include "host/KivReader/motionfigure.h"
#include "host/KivReader/readingoptions.h"
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
    const ReadingOptions wanted = readingOptionsFrom(optionsFor(options).get());
    if (!wanted.error.empty())
        throw std::runtime_error(wanted.error);
    MotionDocument document = documentFrom(text);
    const MotionFigure figure = makeFigure(document, wanted.frame);
    if (name.empty())
        name = figure.joints.front().name;
    BuiltSkeleton built = buildSkeleton(figure, takeTable(document), qualifyNames ? name : std::string());
    built.node->setName(name);
    built.animation->setName(name);
    return built;
}

}  // namespace

bool ReaderWriterBVH::readBVHNode(const std::string& text, const osgDB::Options* options, osg::Node** node,
                                  KivAnimation::Animation** animation, std::string& name, bool qualifyNames)
{
    errorOfThisThread().clear();
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
}

std::string ReaderWriterBVH::lastError()
{
    return errorOfThisThread();
}

void ReaderWriterBVH::setDefaultOptions(const osgDB::Options* options)
{
    DefaultOptions& defaults = defaultOptions();
    const std::lock_guard<std::mutex> lock(defaults.mutex);
    defaults.options = options;
}

}  // namespace KivReader
