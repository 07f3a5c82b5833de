// readone MOTION.bvh: reads a motion into nodes, without module or avatar, and says how long it is.

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "KivReader/readerwriterbvh.h"

int main(int argc, char** argv)
{
    std::ifstream file(argc > 1 ? argv[1] : "", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};

    osg::Node* node = nullptr;
    KivAnimation::Animation* animation = nullptr;
    std::string name;
    if (!KivReader::ReaderWriterBVH::readBVHNode(text, nullptr, &node, &animation, name, false)) {
        std::cerr << "readone: " << KivReader::ReaderWriterBVH::lastError() << std::endl;
        return 1;
    }
    const osg::ref_ptr<osg::Node> holdNode = node;
    const osg::ref_ptr<KivAnimation::Animation> holdAnimation = animation;
    std::cout << name << ": " << animation->frameCount() << " frames" << std::endl;
}
