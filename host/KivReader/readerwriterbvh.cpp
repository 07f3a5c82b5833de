#include "KivReader/readerwriterbvh.h"

#include <exception>
#include <mutex>
#include <stdexcept>
#include <utility>

#include "KivReader/motiondocument.h"
#include "host/KivReader/figure/skeletonbuilder.h"
#include "host/KivReader/humanoid/profiledfigure.h"

namespace KivReader {

namespace {

/// What the calls share, whichever threads they come from: commands read on one thread, and the host asks on
/// another why a reading was refused.
struct SharedState
{
    std::mutex mutex;
    osg::ref_ptr<const osgDB::Options> defaultOptions;
    std::string lastError;
    ProfileRecord lastProfile;
};

SharedState& sharedState()
{
    // Never destroyed: at exit the library that the options come from may be gone already.
    static SharedState* const s_state = new SharedState;
    return *s_state;
}

osg::ref_ptr<const osgDB::Options> optionsFor(const osgDB::Options* options)
{
    if (options != nullptr)
        return options;
    SharedState& state = sharedState();
    const std::lock_guard<std::mutex> lock(state.mutex);
    return state.defaultOptions;
}

void remember(std::string error, ProfileRecord profile)
{
    SharedState& state = sharedState();
    const std::lock_guard<std::mutex> lock(state.mutex);
    state.lastError = std::move(error);
    state.lastProfile = std::move(profile);
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
                           bool qualifyNames, ProfileRecord& profile)
{
    const ProfileOptions wanted = wantedFrom(optionsFor(options).get());
    MotionDocument document = documentFrom(text);
    ProfiledFigure profiled = makeProfiledFigure(document, wanted);
    if (name.empty())
        name = profiled.figure.joints.front().name;
    BuiltSkeleton built =
        buildSkeleton(std::move(profiled.figure), takeTable(document), qualifyNames ? name : std::string());
    profile = std::move(profiled.record);
    built.node->setName(name);
    built.animation->setName(name);
    return built;
}

}  // namespace

bool ReaderWriterBVH::readBVHNode(const std::string& text, const osgDB::Options* options, osg::Node** node,
                                  KivAnimation::Animation** animation, std::string& name, bool qualifyNames)
{
    if (node == nullptr || animation == nullptr) {
        remember("no place for the node and the animation", ProfileRecord());
        return false;
    }
    try {
        std::string qualifier = name;
        ProfileRecord profile;
        BuiltSkeleton built = readSkeleton(text, options, qualifier, qualifyNames, profile);
        remember(std::string(), std::move(profile));
        name = std::move(qualifier);
        *node = built.node.release();
        *animation = built.animation.release();
        return true;
    } catch (const std::exception& failure) {
        remember(failure.what(), ProfileRecord());
        return false;
    }
}

void ReaderWriterBVH::resetKivReader()
{
    remember(std::string(), ProfileRecord());
}

std::string ReaderWriterBVH::lastError()
{
    SharedState& state = sharedState();
    const std::lock_guard<std::mutex> lock(state.mutex);
    return state.lastError;
}

ProfileRecord ReaderWriterBVH::lastProfile()
{
    SharedState& state = sharedState();
    const std::lock_guard<std::mutex> lock(state.mutex);
    return state.lastProfile;
}

void ReaderWriterBVH::setDefaultOptions(const osgDB::Options* options)
{
    SharedState& state = sharedState();
    const std::lock_guard<std::mutex> lock(state.mutex);
    state.defaultOptions = options;
}

}  // namespace KivReader
