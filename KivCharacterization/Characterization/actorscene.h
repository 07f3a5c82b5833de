#pragma once

#include <osg/Node>
#include <osg/Switch>
#include <osg/ref_ptr>

namespace KivCharacterization {

/// A switch over the motion skeleton, off: playback turns it on once there is a frame to show.
osg::ref_ptr<osg::Switch> makeSkeletonSwitch(osg::Node& skeleton);

/// A switch over the translucent centre-of-mass marker (a sphere) and its foot point on the ground (a
/// disc), off.
osg::ref_ptr<osg::Switch> makeCentreOfMassSwitch();

/// A switch for contact spheres, without any yet.
osg::ref_ptr<osg::Switch> makeContactSwitch();

/// Lights the skeleton's meshes from both sides and forces their back faces to be drawn, so that mirrored
/// or open pieces look whole.
void setSkeletonState(osg::Node& skeleton);

}  // namespace KivCharacterization
