#pragma once

#include <osg/MatrixTransform>

namespace KivCharacterization {

/// One of the transforms between a bone and the copy of a piece: wrapper, props transform or holder.
class PieceTransform : public osg::MatrixTransform
{
public:
    PieceTransform() = default;

    /// Made as the last child of its parent, which holds it. Cheaper than adding it later: a new transform is
    /// known to be no occluder, to have no children and no callbacks.
    PieceTransform(PieceTransform& parent, const osg::Matrixd& matrix) : osg::MatrixTransform(matrix)
    {
        // The parent comes last: nothing may throw once it holds the transform.
        _parents.push_back(&parent);
        parent._children.emplace_back(this);
        parent.dirtyBound();
    }

protected:
    ~PieceTransform() override = default;
};

}  // namespace KivCharacterization
