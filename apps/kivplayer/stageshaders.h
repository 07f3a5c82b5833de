#pragma once

namespace KivPlayer::StageShaders {

/// GLSL. Vertex shaders are whole; the fragment shaders of figures and ground are kColours + kLighting +
/// their own text, that of the backdrop is kColours + its own.
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
