#pragma once

#include <QString>
#include <array>

/// What a level stores of its terrain beside the heights: a value.
struct TerrainContent {
    QString texture;   ///< Image file of the terrain texture.
    int density = 0;   ///< Grid points per map unit.
    int dimension = 0; ///< Side of the map in map units.
    std::array<float, 3> color{1, 1, 1};
    bool randomGeography = false; ///< The game makes the terrain; heights are not stored.

    friend bool operator==(const TerrainContent &, const TerrainContent &) = default;
};
