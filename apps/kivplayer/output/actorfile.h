#pragma once

#include <osg/Group>
#include <osg/ref_ptr>

#include <string>

#include "apps/kivplayer/session/session.h"

namespace KivPlayer {

/// The actors as they stand now, as a scene that OpenSceneGraph alone can read: a group for every actor,
/// called by its label, in it a transform for every joint with the pieces that it wears. No overlays, no
/// callbacks, nothing of the player's. Scene units, Z up. Made between frames.
osg::ref_ptr<osg::Group> plainActors(const Session& session);

/// Writes them: .osgb (binary) or .osgt (text).
/// @param seconds the time at which the actors are posed.
/// @return what went wrong, empty on success.
std::string writeActors(const std::string& file, const Session& session, double seconds);

}  // namespace KivPlayer
