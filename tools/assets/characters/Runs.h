#pragma once

#include "tools/assets/characters/Mesh.h"

struct RunCorner {
    unsigned vertex = 0;
    unsigned texel = 0;
};

/// A triangle strip or fan; the first triangle turns as the mesh's faces do.
struct Run {
    bool fan = false;
    std::vector<RunCorner> corners;
};

/// Few, long runs that together draw every face of the mesh once, and nothing else.
std::vector<Run> runsOf(const Mesh &mesh);
