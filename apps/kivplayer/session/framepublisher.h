#pragma once

#include <osg/BoundingBox>
#include <osg/Vec3d>

#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "KivFrameData/framedatapublisher.h"
#include "apps/kivplayer/analysis/sampledmotion.h"
#include "apps/kivplayer/session/session.h"

namespace KivPlayer {

/// Poses the actors at a time, has the host publish their frame data for it, and knows where their motions
/// lead. Used between frames.
class FramePublisher
{
public:
    /// @param contacts whether contacts are published at all: the overlay shows whatever is.
    explicit FramePublisher(bool contacts) : m_frameData(contacts) {}

    /// Contacts that are no longer published are taken out of the store.
    void publishContacts(bool wanted) { m_frameData.publishContacts(wanted); }

    /// Takes the actors over as they are now. The motion of those that are new is sampled for where it leads.
    /// @param shown the part of it that is going to be shown, seconds; unset: all of it.
    void setActors(const std::map<unsigned, LoadedActor>& actors,
                   const std::optional<std::pair<double, double>>& shown = std::nullopt);

    /// Poses all actors and publishes.
    void show(double seconds) { m_frameData.publishAt(seconds); }

    double duration() const { return m_duration; }

    /// Where the joints were in the sampled part of the motion, and where they are now. Scene units.
    std::vector<osg::Vec3d> sampledPositions() const;
    osg::BoundingBox sampledBox() const;
    std::vector<osg::Vec3d> positionsNow() const;

    /// The same of the joints that the name labels float above, one for each actor, moment by moment.
    std::vector<osg::Vec3d> sampledHeads() const;
    std::vector<osg::Vec3d> headsNow() const;

    /// For a camera that follows: the positions of one actor in the sampled motion, taken from the point of
    /// the ground below its root joint, and that point around a time, smoothed so that the camera does not
    /// sway with the steps. Leaves the actors posed at that time. Actors count in the order of their indices.
    std::vector<osg::Vec3d> sampledPositionsOver(std::size_t actor) const;
    std::vector<osg::Vec3d> sampledHeadsOver(std::size_t actor) const;
    osg::Vec3d groundUnder(std::size_t actor, double seconds);

    /// The compass direction that the figures face, radians counter-clockwise from the x axis; the mean over
    /// the samples. Towards -y where nothing tells.
    double facing() const { return m_facing; }

private:
    struct Body
    {
        const LoadedActor* actor;
        osg::ref_ptr<const osg::Node> root;  ///< tells an actor from one that has taken its place
        SampledMotion sampled;
    };

    Body makeBody(const LoadedActor& actor, const std::optional<std::pair<double, double>>& shown) const;
    void findFront();
    void pose(double seconds);

    KivFrameData::FrameDataPublisher m_frameData;
    std::vector<Body> m_bodies;
    double m_duration = 0.0;
    double m_facing = 0.0;
};

}  // namespace KivPlayer
