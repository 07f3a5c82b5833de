#include "KivMemoryShare/actorframemanager.h"

#include <algorithm>
#include <array>
#include <climits>
#include <map>
#include <mutex>

namespace KivMemoryShare {

struct ActorFrameManager::Store
{
    /// What one actor published last; the room is fixed, so that publishing allocates nothing.
    template <typename Value, std::size_t Capacity>
    struct Publication
    {
        std::array<Value, Capacity> values{};
        std::size_t count = 0;
        unsigned long long writes = 0;

        void write(const Value* source, std::size_t wanted)
        {
            count = source ? std::min(wanted, Capacity) : 0;
            std::copy_n(source, count, values.begin());
            ++writes;
        }

        bool read(Value** buffer, int& tag, unsigned long long& copied) const
        {
            if (writes == 0 || !buffer || !*buffer) {
                return false;
            }
            std::copy_n(values.begin(), count, *buffer);
            tag = static_cast<int>(writes & INT_MAX);
            copied = count;
            return true;
        }
    };

    struct ActorFrame
    {
        Publication<float, ActorFrameManager::kGravityFloats> gravity;
        Publication<KivCommonDef::KIV_STICKCONTACT, ActorFrameManager::kStickContacts> contacts;
    };

    std::mutex mutex;
    std::map<unsigned, ActorFrame> actors;

    template <typename Stream, typename Value>
    bool read(Stream ActorFrame::*stream, unsigned actor, Value** buffer, int& tag, unsigned long long& count)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const auto found = actors.find(actor);
        return found != actors.end() && (found->second.*stream).read(buffer, tag, count);
    }
};

// Never destroyed: an update callback may still read while the program ends.
ActorFrameManager* ActorFrameManager::Ins()
{
    static ActorFrameManager* const s_instance = new ActorFrameManager;
    return s_instance;
}

ActorFrameManager::ActorFrameManager() : m_spStore(std::make_unique<Store>()) {}

ActorFrameManager::~ActorFrameManager() = default;

bool ActorFrameManager::ReadActorGravity(unsigned actor, float** buffer, int& tag,
                                         unsigned long long& count) const
{
    return m_spStore->read(&Store::ActorFrame::gravity, actor, buffer, tag, count);
}

bool ActorFrameManager::ReadActorStickContact(unsigned actor, KivCommonDef::KIV_STICKCONTACT** buffer,
                                              int& tag, unsigned long long& count) const
{
    return m_spStore->read(&Store::ActorFrame::contacts, actor, buffer, tag, count);
}

void ActorFrameManager::WriteActorGravity(unsigned actor, const float* values, std::size_t count)
{
    const std::lock_guard<std::mutex> lock(m_spStore->mutex);
    m_spStore->actors[actor].gravity.write(values, count);
}

void ActorFrameManager::WriteActorStickContact(unsigned actor, const KivCommonDef::KIV_STICKCONTACT* contacts,
                                               std::size_t count)
{
    const std::lock_guard<std::mutex> lock(m_spStore->mutex);
    m_spStore->actors[actor].contacts.write(contacts, count);
}

void ActorFrameManager::RemoveActor(unsigned actor)
{
    const std::lock_guard<std::mutex> lock(m_spStore->mutex);
    m_spStore->actors.erase(actor);
}

void ActorFrameManager::Clear()
{
    const std::lock_guard<std::mutex> lock(m_spStore->mutex);
    m_spStore->actors.clear();
}

}  // namespace KivMemoryShare
