#pragma once

#include "tools/assets/pictures/Field.h"

#include <cstdint>

/// Ripples that the wind leaves in sand: crests across the picture's y axis, `count` of them from top to
/// bottom, which fork and end like real ones because they are a narrow band of waves, each of which fits
/// the picture a whole number of times. 0 in the troughs to 1 on the crests.
Field sandRipples(int side, int count, std::uint32_t seed);
