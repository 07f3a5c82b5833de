#include "host/KivAnimation/bonewatch.h"

namespace KivAnimation {

BoneWatch::BoneWatch(Bone* bone, Bone** pointer) : m_pointer(pointer)
{
    *m_pointer = bone;
    if (bone) {
        m_set = bone->getOrCreateObserverSet();
        m_set->addObserver(this);
    }
}

// The set outlives its bone and locks itself: it does not matter whether the bone is alive, dead or just
// dying.
BoneWatch::~BoneWatch()
{
    if (m_set) {
        m_set->removeObserver(this);
    }
}

void BoneWatch::objectDeleted(void*)
{
    *m_pointer = nullptr;
}

}  // namespace KivAnimation
