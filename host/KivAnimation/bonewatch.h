#pragma once

#include <vector>

#include "KivAnimation/bone.h"

namespace KivAnimation {

/// Empties a plain pointer when the bone that it points to dies. A bone knows the first of its watches, each
/// watch the next: watching takes no memory but the watch's own.
class BoneWatch
{
public:
    explicit BoneWatch(Bone*& pointer) : m_pointer(&pointer) {}

private:
    friend class Bone;
    friend class BoneWatches;

    void begin();
    void end();
    /// What a dying bone does.
    static void emptyAll(BoneWatch*& first);

    Bone** m_pointer;
    BoneWatch* m_next = nullptr;
    BoneWatch** m_link = nullptr;  ///< the bone's or another watch's pointer to this one; null: nothing does
};

/// Watches the bones of a list of joints. Reading a joint's `bone` costs nothing, unlike asking an
/// observer_ptr; it may be read while no bone of the skeleton can die.
class BoneWatches
{
public:
    /// @param joints with a member `Bone* bone`. They stay in their place in memory until the watches end.
    template <typename Joint>
    explicit BoneWatches(std::vector<Joint>& joints)
    {
        m_watches.reserve(joints.size());
        for (Joint& joint : joints) {
            m_watches.emplace_back(joint.bone);
        }
        beginAll();
    }
    ~BoneWatches();
    BoneWatches(const BoneWatches&) = delete;
    BoneWatches& operator=(const BoneWatches&) = delete;

private:
    void beginAll();

    std::vector<BoneWatch> m_watches;
};

}  // namespace KivAnimation
