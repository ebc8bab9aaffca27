#pragma once

#include "map/TerrainMesh.h"

/// What joins a terrain to the ground frame that lies around it at height 0: two triangle strips, each once
/// around the border and back to its start, in the terrain's texture.
struct TerrainEdge {
    /// From each border point straight to height 0: fronts outward where the border is raised, inward
    /// where it is lowered.
    std::vector<TerrainVertex> wall;

    /// At height 0 from the wall's foot outward, below the frame: long sides of the frame and the short
    /// ones of the terrain do not meet in every pixel, and this is what shows there. To be drawn with its
    /// depth moved back. Fronts upward.
    std::vector<TerrainVertex> lining;
};

/// The edge of the grid as its heights are now; both strips are empty for a grid without area.
TerrainEdge terrainEdge(const TerrainMesh &terrain);

/// Draws both strips; what lies in the lining's plane hides it. Needs a current OpenGL context in the state
/// that the terrain is drawn in.
void drawTerrainEdge(const TerrainEdge &edge);
