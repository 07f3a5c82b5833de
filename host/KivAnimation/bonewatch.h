#pragma once

#include <osg/Observer>
#include <osg/ref_ptr>

#include "KivAnimation/bone.h"

namespace KivAnimation {

/// Empties a plain pointer when the bone that it points to dies. Reading the pointer costs nothing, unlike
/// asking an observer_ptr; it may be read while no bone of the skeleton can die.
class BoneWatch : public osg::Observer
{
public:
    /// @param bone may be null. The watch stays where it is made and its bone pointer must outlive it.
    BoneWatch(Bone* bone, Bone** pointer);
    ~BoneWatch() override;
    BoneWatch(const BoneWatch&) = delete;
    BoneWatch& operator=(const BoneWatch&) = delete;

    void objectDeleted(void* object) override;

private:
    osg::ref_ptr<osg::ObserverSet> m_set;
    Bone** m_pointer;
};

}  // namespace KivAnimation
