#pragma once

#include <osg/Node>
#include <osg/ref_ptr>

#include <string>

#include "KivAnimation/animation.h"

namespace KivBenchmark {

struct ReadSkeleton
{
    osg::ref_ptr<osg::Node> node;
    osg::ref_ptr<KivAnimation::Animation> animation;
};

/// A motion read by the reference host, bones named as the module asks for it. Throws std::runtime_error
/// where the text is refused.
ReadSkeleton readSkeleton(const std::string& text, const std::string& actorId = "7");

}  // namespace KivBenchmark
