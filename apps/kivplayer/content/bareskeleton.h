#pragma once

#include <osg/Group>
#include <osg/ref_ptr>

#include <map>
#include <string>
#include <vector>

#include "apps/kivplayer/content/loadedactor.h"

namespace KivPlayer {

/// What is shown of a file that is not recognised as a person: its skeleton, which wears nothing. A few
/// pieces of a body at joints that happen to have a person's names would be no figure.

/// Takes off the pieces of the avatar that an actor wears, stands its skeleton on the ground, and scales one
/// that is far from a person's size to it. Measures the pose that the bones are in. While the scene may be
/// changed.
void makeBare(DressedActor& actor);

/// The roots of those among the actors that are bare.
std::vector<osg::ref_ptr<osg::Group>> bareSkeletons(const std::map<unsigned, LoadedActor>& actors);

/// "not recognised as a person: REASON", a line for each bare actor, with its name where there are others;
/// empty where there are none.
std::string bareNotice(const std::map<unsigned, LoadedActor>& actors);

}  // namespace KivPlayer
