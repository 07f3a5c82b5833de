// A figure for tests: a trunk on two legs, whose left foot stands still for a second and is then lifted.
#pragma once

#include <osg/Switch>
#include <osg/ref_ptr>

#include <stdexcept>
#include <string>

#include "KivAnimation/animation.h"
#include "KivReader/readerwriterbvh.h"

namespace KivFrameDataTest {

constexpr int kFramesASecond = 10;

inline std::string leg(const std::string& side, int x)
{
    return "  JOINT " + side + "UpLeg\n  {\n    OFFSET " + std::to_string(x) +
           " 0 0\n    CHANNELS 3 Zrotation Xrotation Yrotation\n"
           "    JOINT " +
           side +
           "Leg\n    {\n      OFFSET 0 -40 0\n      CHANNELS 3 Zrotation Xrotation Yrotation\n"
           "      JOINT " +
           side +
           "Foot\n      {\n        OFFSET 0 -40 0\n"
           "        CHANNELS 3 Zrotation Xrotation Yrotation\n"
           "        End Site\n        {\n          OFFSET 0 0 10\n        }\n      }\n    }\n  }\n";
}

/// Hips in the origin of the file, soles at height 0: a second of standing, then the left thigh turns
/// forward.
inline std::string legsText(bool withNeck = true)
{
    std::string text =
        "HIERARCHY\nROOT Hips\n{\n  OFFSET 0 0 0\n"
        "  CHANNELS 6 Xposition Yposition Zposition Zrotation Xrotation Yrotation\n";
    if (withNeck)
        text +=
            "  JOINT Neck\n  {\n    OFFSET 0 50 0\n    CHANNELS 3 Zrotation Xrotation Yrotation\n"
            "    JOINT Head\n    {\n      OFFSET 0 10 0\n      CHANNELS 3 Zrotation Xrotation Yrotation\n"
            "      End Site\n      {\n        OFFSET 0 20 0\n      }\n    }\n  }\n";
    text += leg("Left", 10) + leg("Right", -10) + "}\nMOTION\nFrames: 21\nFrame Time: 0.1\n";
    for (int frame = 0; frame <= 2 * kFramesASecond; ++frame) {
        const int lifted = frame > kFramesASecond ? -6 * (frame - kFramesASecond) : 0;
        text += "0 80 0 0 0 0";
        text += withNeck ? " 0 0 0 0 0 0" : "";
        text += " 0 " + std::to_string(lifted) + " 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\n";
    }
    return text;
}

/// The figure below a switch, as the module hands it to the playback.
struct Actor
{
    explicit Actor(const std::string& id, const std::string& text = legsText())
    {
        osg::Node* node = nullptr;
        KivAnimation::Animation* motion = nullptr;
        std::string name = id;
        if (!KivReader::ReaderWriterBVH::readBVHNode(text, nullptr, &node, &motion, name, true))
            throw std::runtime_error(KivReader::ReaderWriterBVH::lastError());
        root->addChild(node);
        animation = motion;
        animation->setId(id);
        animation->setAttachNodePtr(root);
    }

    osg::ref_ptr<osg::Switch> root = new osg::Switch;
    osg::ref_ptr<KivAnimation::Animation> animation;
};

}  // namespace KivFrameDataTest
