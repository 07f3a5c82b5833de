#pragma once

#include <osg/Matrixd>
#include <osgAnimation/Bone>

#include <string>

#include "KivCommonDef/sharedlibrary.h"

namespace KivAnimation {

class BoneWatch;

/// A joint of a motion skeleton. Its matrix is the joint's current transform relative to its parent, the
/// inherited skeleton-space matrix the same relative to the skeleton; the initial matrix is the rest
/// transform relative to the parent. Scene units (centimetres), Z-up.
class KIV_ANIMATION_API Bone : public osgAnimation::Bone
{
public:
    explicit Bone(std::string name = std::string());
    /// Made as the last child of its parent, which holds it. Cheaper than adding it later: a new bone is
    /// known to be no occluder, to have no children and no callbacks.
    Bone(std::string name, Bone& parent);
    Bone(const Bone& other, const osg::CopyOp& copyop = osg::CopyOp::SHALLOW_COPY);
    META_Node(KivAnimation, Bone)

    const osg::Matrixd& getInitialMatrix() const { return m_initialMatrix; }
    void setInitialMatrix(const osg::Matrixd& matrix) { m_initialMatrix = matrix; }

protected:
    ~Bone() override;

private:
    friend class Poser;  // playback writes both matrices in place
    friend class BoneWatch;

    osg::Matrixd m_initialMatrix;
    BoneWatch* m_firstWatch = nullptr;  ///< who is told when this bone dies; never copied
};

}  // namespace KivAnimation
