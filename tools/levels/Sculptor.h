#pragma once

#include "map/CellGrid.h"

#include <functional>

class TerrainMesh;

/// Shapes a terrain with what the editor offers: cells raised and lowered by notches of the
/// wheel, and erosion.
class Sculptor {
public:
    explicit Sculptor(TerrainMesh &sculpted);

    /// Turns the wheel over every cell by the notches (2/3 map unit each) that the function gives
    /// for the cell's column and row, up for positive numbers.
    void turnWheel(const std::function<int(int column, int row)> &notches);

    /// Clicks on "Erode Terrain" so often.
    void erodeTimes(int times);

private:
    TerrainMesh &terrain;
    CellGrid cells;
};
