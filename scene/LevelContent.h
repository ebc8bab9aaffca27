#pragma once

#include "environment/BackgroundContent.h"
#include "map/TerrainContent.h"
#include "map/TerrainHeights.h"
#include "scene/PlayerContent.h"

#include <vector>

class LevelDocument;

/// What a level is, apart from the graph that holds and draws it: a value that can be kept,
/// compared and put back. Holds all players, also those that are not written to a file.
struct LevelContent {
    BackgroundContent background;
    TerrainContent terrain;
    TerrainHeights heights;
    std::vector<PlayerContent> players; ///< In slot order.

    friend bool operator==(const LevelContent &, const LevelContent &) = default;
};

/// The content of a complete document. Heights that are the same in `earlier` are shared with it.
LevelContent contentOf(const LevelDocument &level, const LevelContent &earlier = {});

/// Makes a complete document's content the given one, whatever its size. Players beyond it are
/// destroyed, the others keep their place in memory and being current. What was made for drawing
/// (textures, lists, normals) stays as it was.
void setContent(LevelDocument &level, const LevelContent &content);
