#pragma once

#include <vector>

class TerrainMesh;

/// Smooths a square field of side × side heights, row by row, in place. Each pass replaces every
/// inner height by the mean of its eight neighbours, in increasing order of points in even passes
/// and in decreasing order in odd ones, so a point sees those visited before it. The border
/// becomes 0.
void erode(std::vector<float> &heights, int side, int passes);

/// Smooths a terrain; its normals are stale afterwards.
void erode(TerrainMesh &terrain, int passes);
