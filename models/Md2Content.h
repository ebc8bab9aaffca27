#pragma once

#include "map/math/Vec3.h"
#include "models/Md2Format.h"

#include <string>
#include <vector>

struct Md2Vertex {
    Vec3 position;
    Vec3 normal;
};

/// A pose of the model, decoded to what is drawn.
struct Md2Frame {
    std::string name;
    std::vector<Md2Vertex> vertices;
};

/// The lists of one model file.
struct Md2Content {
    std::vector<std::string> skinNames;
    std::vector<Md2TexCoord> texCoords;
    std::vector<Md2Triangle> triangles;
    std::vector<Md2Frame> frames;
    std::vector<std::int32_t> glCommands; ///< Words as stored; see Md2Format.h.
};
