#pragma once

#include <osg/Vec3d>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "KivAnimation/motion.h"
#include "KivCommonDef/sharedlibrary.h"
#include "KivReader/motiondocument.h"
#include "host/KivReader/figure/posesteps.h"

namespace KivReader {

/// Which way of the file's is up.
enum class UpAxis : std::uint8_t
{
    Y,
    Z,
    X,
    MinusY,
    MinusZ,
    MinusX
};

/// How a file's space lies in the scene's.
struct FileFrame
{
    double unit = 1.0;  ///< scene units (centimetres) per length unit of the file
    UpAxis up = UpAxis::Y;
};

/// A motion skeleton between the file and the nodes: plain data in the scene's frame and units, Z-up. Joints
/// may be renamed, folded and inserted here; the columns of the motion's table stay what they are, only the
/// steps that read them move.
struct MotionFigure
{
    struct Joint
    {
        std::string name;
        std::int32_t parent = -1;  ///< index into joints, always smaller than the joint's own
        osg::Vec3d offset;         ///< rest translation relative to the parent; the rest rotation is none
        osg::Vec3d fitShift;  ///< what dressing measures is the offset and this; nothing else is moved by it
        std::uint32_t firstStep = 0;
        std::uint32_t stepCount = 0;
        bool endSite = false;
        std::size_t line = 0;  ///< of the declaration in the file; 0 where there is none
    };

    /// From the parent's frame to the joint's, in order. The steps of a parent followed by those of its
    /// child are exactly the steps of the child alone, frame by frame.
    PoseSteps stepsOf(const Joint& joint) const { return {steps.data() + joint.firstStep, joint.stepCount}; }
    KIV_READER_API void addJoint(Joint joint, const PoseSteps& its);
    void replaceSteps(std::size_t joint, const PoseSteps& its);

    std::vector<Joint> joints;                  ///< parents before children, the root first
    std::vector<KivAnimation::PoseStep> steps;  ///< of all joints, in their order
};

/// A vector of the file's space in the scene's, where Z is up. Always a turn, never a mirror.
KIV_READER_API osg::Vec3d inScene(const osg::Vec3d& inFile, UpAxis up);

/// The document's joints, turned into the scene and scaled. Of the motion only its layout is looked at.
KIV_READER_API MotionFigure makeFigure(const MotionDocument& document, const FileFrame& frame);

}  // namespace KivReader
