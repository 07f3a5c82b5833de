#pragma once

#include <osg/Matrixd>
#include <osg/NodeCallback>

#include <mutex>

#include "KivCommonDef/sharedlibrary.h"

namespace KivAnimation {

/// Holds a joint's current local matrix and gives it to the bone that it is a callback of, in the update
/// traversal. Playback writes the matrix while a command may read it: every access is synchronised.
class KIV_ANIMATION_API UpdateBone : public osg::NodeCallback
{
public:
    UpdateBone();
    explicit UpdateBone(const osg::Matrixd& matrix);
    UpdateBone(const UpdateBone& other, const osg::CopyOp& copyop);
    META_Object(KivAnimation, UpdateBone)

    void setMatrix(const osg::Matrixd& matrix);
    osg::Matrixd getMatrix() const;

    /// Takes over the other's matrix. Two callbacks may do this to each other at once.
    void ApplyOtherMatrix(const UpdateBone& other);

    /// Sets the node's matrix, where the node is a bone whose matrix differs; then traverses.
    void operator()(osg::Node* node, osg::NodeVisitor* visitor) override;

protected:
    ~UpdateBone() override;

private:
    mutable std::mutex m_mutex;
    osg::Matrixd m_matrix;
};

}  // namespace KivAnimation
