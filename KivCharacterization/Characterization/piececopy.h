#pragma once

#include <osg/Array>
#include <osg/CopyOp>
#include <osg/Drawable>
#include <osg/Node>
#include <osg/PrimitiveSet>
#include <osg/StateSet>

namespace KivCharacterization {

/// A deep copy of everything, as DEEP_COPY_ALL makes it. A copied part is taken for what its original is,
/// where OpenSceneGraph's own operator asks every copy for its type.
class PieceCopy : public osg::CopyOp
{
public:
    PieceCopy() : osg::CopyOp(DEEP_COPY_ALL) {}

    using osg::CopyOp::operator();
    osg::Node* operator()(const osg::Node* node) const override { return copyOf(node); }
    osg::Drawable* operator()(const osg::Drawable* drawable) const override { return copyOf(drawable); }
    osg::StateSet* operator()(const osg::StateSet* stateSet) const override { return copyOf(stateSet); }
    osg::Array* operator()(const osg::Array* array) const override { return copyOf(array); }
    osg::PrimitiveSet* operator()(const osg::PrimitiveSet* primitives) const override
    {
        return copyOf(primitives);
    }

private:
    template <typename Part>
    Part* copyOf(const Part* original) const
    {
        return original ? static_cast<Part*>(original->clone(*this)) : nullptr;
    }
};

}  // namespace KivCharacterization
