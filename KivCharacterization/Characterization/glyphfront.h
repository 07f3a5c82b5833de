#pragma once

#include <osgText/Glyph>

namespace KivCharacterization {

/// Takes from a glyph's shape all but its front: without thickness the back lies in the front's plane, where
/// the two would speckle, and the walls have no height. A font keeps one shape for all texts of a style, and
/// every text copies its vertices, nine tenths of which are those of back and walls.
/// @return whether there was anything to take away.
bool keepFrontOnly(osgText::GlyphGeometry& glyph);

}  // namespace KivCharacterization
