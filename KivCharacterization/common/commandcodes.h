#pragma once

#include <array>
#include <cstdint>

namespace KivCharacterization {

/// The four codes of every kind of command, by which a host's command library tells them apart. The first is
/// that of all commands of this module. The module itself reads none of them.  // frozen
using CommandCodes = std::array<std::int32_t, 4>;

inline constexpr CommandCodes kLoadActorCodes = {1, 2, 3, 4};         // frozen
inline constexpr CommandCodes kResetSessionCodes = {1, 23, 24, 25};   // frozen
inline constexpr CommandCodes kCameraTraceCodes = {1, 26, 27, 28};    // frozen
inline constexpr CommandCodes kRemoveActorCodes = {1, 32, 33, 34};    // frozen
inline constexpr CommandCodes kCameraHomeCodes = {1, 38, 39, 40};     // frozen
inline constexpr CommandCodes kShowDraggerCodes = {1, 41, 42, 43};    // frozen
inline constexpr CommandCodes kPropsMatrixCodes = {1, 44, 45, 46};    // frozen
inline constexpr CommandCodes kRenameActorCodes = {1, 47, 48, 49};    // frozen
inline constexpr CommandCodes kColourContactCodes = {1, 50, 51, 52};  // frozen

}  // namespace KivCharacterization
