#pragma once

#include <cstddef>
#include <memory>

#include "KivCommonDef/sharedlibrary.h"
#include "KivCommonDef/stickcontact.h"

namespace KivMemoryShare {

/// Per-frame data of every actor: a writer publishes it, the overlays read it. Positions are Y-up; the
/// centre of mass is in scene units (centimetres), contacts are in metres. Every operation is synchronised.
class KIV_MEMORYSHARE_API ActorFrameManager
{
public:
    /// Most floats that a gravity read copies, most records that a contact read copies: what the readers'
    /// buffers hold.
    static constexpr std::size_t kGravityFloats = 10;
    static constexpr std::size_t kStickContacts = 100;

    static ActorFrameManager* Ins();

    ActorFrameManager(const ActorFrameManager&) = delete;
    ActorFrameManager& operator=(const ActorFrameManager&) = delete;

    /// Copies the actor's centre of mass (x, y, z first) into `*buffer`, which has room for kGravityFloats
    /// floats.
    /// @param tag   how often the actor's gravity has been written, cut to an int.
    /// @param count how many floats were copied.
    /// @return false, and nothing touched, for an actor that was never written or has been removed.
    bool ReadActorGravity(unsigned actor, float** buffer, int& tag, unsigned long long& count) const;

    /// The same for contacts; `*buffer` has room for kStickContacts records. Zero contacts is a successful
    /// read.
    bool ReadActorStickContact(unsigned actor, KivCommonDef::KIV_STICKCONTACT** buffer, int& tag,
                               unsigned long long& count) const;

    /// What exceeds the readers' buffers is dropped. Null data counts as zero values.
    void WriteActorGravity(unsigned actor, const float* values, std::size_t count);
    void WriteActorStickContact(unsigned actor, const KivCommonDef::KIV_STICKCONTACT* contacts,
                                std::size_t count);

    void RemoveActor(unsigned actor);
    void Clear();

private:
    ActorFrameManager();
    ~ActorFrameManager();

    struct Store;
    std::unique_ptr<Store> m_spStore;
};

}  // namespace KivMemoryShare
