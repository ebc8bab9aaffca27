#pragma once

#include "tools/assets/characters/Mesh.h"

struct StripCorner {
    unsigned vertex = 0;
    unsigned texel = 0;
};

/// Corners of a triangle strip; the first triangle turns as the mesh's faces do.
using Strip = std::vector<StripCorner>;

/// Few, long strips that together draw every face of the mesh once.
std::vector<Strip> stripsOf(const Mesh &mesh);
