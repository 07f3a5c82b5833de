#pragma once

#include <memory>

#include "KivCommonDef/sharedlibrary.h"

namespace KivFrameData {

/// Publishes what the overlays of every actor show: its centre of mass, and which of its feet, hands and
/// props touch the ground. It looks after every animation of the shared playback whose id is an actor's
/// number, and takes an actor's data out of the frame store when its animation goes.
///
/// Called once a frame, between frames, by the thread that runs the update traversal. It holds nodes: let it
/// go before SceneCfgShare::reset(). A frame without new actors allocates nothing.
class KIV_FRAMEDATA_API FrameDataPublisher
{
public:
    /// @param contacts whether contacts are published, too: the overlay shows whatever is.
    explicit FrameDataPublisher(bool contacts = true);
    ~FrameDataPublisher();
    FrameDataPublisher(const FrameDataPublisher&) = delete;
    FrameDataPublisher& operator=(const FrameDataPublisher&) = delete;

    /// Contacts that are no longer published are taken out of the store.
    void publishContacts(bool wanted);

    /// Publishes for the poses that the actors have. Contacts are judged at the playback's time: going on by
    /// less than a second follows the motion step by step; after a jump the steps before the new time are
    /// caught up on, so that what is shown depends on the time alone.
    void publish();

    /// For a host with a clock of its own, whose playback is paused: sets the playback's time, poses all
    /// actors for it and publishes, so that the frame that comes next shows both.
    /// @param seconds on the playback's clock, held within its duration.
    void publishAt(double seconds);

private:
    struct Actors;
    std::unique_ptr<Actors> m_spActors;
};

}  // namespace KivFrameData
