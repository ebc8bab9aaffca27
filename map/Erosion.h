#pragma once

class TerrainMesh;

/// Smooths a terrain, row by row, in place; its normals are stale afterwards. Each pass replaces
/// every inner height by the mean of its eight neighbours, in increasing order of points in even
/// passes and in decreasing order in odd ones, so a point sees those visited before it. The border
/// becomes 0. Finite heights stay finite.
void erode(TerrainMesh &terrain, int passes);
