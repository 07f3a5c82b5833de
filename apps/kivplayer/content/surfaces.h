#pragma once

#include <osg/Node>

namespace KivPlayer {

/// Tells the stage's shading what it cannot see by itself, as uniforms on the state sets below an actor's
/// root: which geometry takes its colour from its vertices, what is text and stays unlit, what casts no
/// shadow (overlays). To be run once over a new actor, while the scene may be changed.
void describeSurfaces(osg::Node& actor);

}  // namespace KivPlayer
