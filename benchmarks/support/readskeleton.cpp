#include "benchmarks/support/readskeleton.h"

#include <stdexcept>

#include "KivReader/readerwriterbvh.h"

namespace KivBenchmark {

ReadSkeleton readSkeleton(const std::string& text, const std::string& actorId)
{
    osg::Node* node = nullptr;
    KivAnimation::Animation* animation = nullptr;
    std::string name = actorId;
    if (!KivReader::ReaderWriterBVH::readBVHNode(text, nullptr, &node, &animation, name, true))
        throw std::runtime_error(KivReader::ReaderWriterBVH::lastError());
    return {node, animation};
}

}  // namespace KivBenchmark
