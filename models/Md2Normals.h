#pragma once

#include "map/math/Vec3.h"
#include "models/Md2Format.h"

#include <array>

/// The unit normals that the vertices of a model file choose from by index.
extern const std::array<Vec3, md2NormalCount> md2Normals;
