#pragma once

#include <cstdint>

namespace KivCommonDef {

/// One contact point of a frame, in the frame store's frame: metres, Y-up.
struct KIV_STICKCONTACT
{
    float x, y, z;
    std::uint8_t contact;  ///< non-zero: the point touches something
    std::uint8_t reserved[3];
};
static_assert(sizeof(KIV_STICKCONTACT) == 16, "the frame store's records are 16 bytes");

/// The colours of one joint's contact display, each component in 0..1.
struct KIV_STICKCONTACT_COLOR
{
    float base[3];           ///< colour without contact
    float red, green, blue;  ///< colour of the contact
};
static_assert(sizeof(KIV_STICKCONTACT_COLOR) == 24, "the contact colour is six floats");

}  // namespace KivCommonDef
