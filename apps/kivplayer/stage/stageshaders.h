#pragma once

namespace KivPlayer::StageShaders {

/// GLSL. Vertex shaders are whole; the fragment shaders of figures and ground are kVersion + defines +
/// kColours + kLighting + their own text, that of the backdrop is kVersion + kColours + its own. The defines:
/// KIV_SHADOW_TAPS, how many looks at the shadow map in each direction, 0 for no shadows; KIV_SKY_TAPS, how
/// many looks around a point of the ground; KIV_NEAR_FIGURES, whether the ground takes notice of the figures
/// at all.
extern const char* const kVersion;
extern const char* const kColours;
extern const char* const kLighting;
extern const char* const kFigureVertex;
extern const char* const kFigureFragment;
extern const char* const kGroundVertex;
extern const char* const kGroundFragment;
extern const char* const kBackdropVertex;
extern const char* const kBackdropFragment;
extern const char* const kDepthVertex;
extern const char* const kDepthFragment;

}  // namespace KivPlayer::StageShaders
