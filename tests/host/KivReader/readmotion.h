// Reads a motion text through the reader's face and walks over the nodes that come back.
#pragma once

#include <osg/Group>
#include <osg/ref_ptr>

#include <string>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"
#include "KivReader/readerwriterbvh.h"

namespace KivReaderTest {

struct Reading
{
    osg::ref_ptr<osg::Node> node;
    osg::ref_ptr<KivAnimation::Animation> animation;
    std::string name;
    bool succeeded = false;
};

inline Reading read(const std::string& text, const std::string& name = "7", bool qualify = true,
                    const osgDB::Options* options = nullptr)
{
    Reading reading;
    reading.name = name;
    osg::Node* node = nullptr;
    KivAnimation::Animation* animation = nullptr;
    reading.succeeded =
        KivReader::ReaderWriterBVH::readBVHNode(text, options, &node, &animation, reading.name, qualify);
    reading.node = node;
    reading.animation = animation;
    return reading;
}

template <typename Wanted>
Wanted* firstChild(osg::Node* node)
{
    osg::Group* group = node ? node->asGroup() : nullptr;
    return group && group->getNumChildren() > 0 ? dynamic_cast<Wanted*>(group->getChild(0)) : nullptr;
}

inline KivAnimation::Bone* rootOf(const Reading& reading)
{
    return firstChild<KivAnimation::Bone>(firstChild<KivAnimation::Skeleton>(reading.node.get()));
}

inline osg::Vec3d placeOf(const KivAnimation::Bone* bone)
{
    return bone->getMatrixInSkeletonSpace().getTrans();
}

}  // namespace KivReaderTest
