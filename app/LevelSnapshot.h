#pragma once

#include "map/CellGrid.h"
#include "scene/LevelContent.h"

class GLMapWidget;

/// What a cell of the overview shows, apart from being selected.
struct CellContent {
    std::array<float, 3> color{};
    bool water = false;
    int player = -1; ///< The slot of the player that takes the cell's place; -1 for none.

    friend bool operator==(const CellContent &, const CellContent &) = default;
};

/// The level as the window works on it, as a value: beside what a file holds, the cells' levels and
/// players, and the size that the window shows. No camera, no mode, no selection.
struct LevelSnapshot {
    LevelContent content;
    std::array<CellContent, CellGrid::cellCount> cells{};
    int dimension = 0; ///< Of the view, as accuracy.
    int accuracy = 0;

    friend bool operator==(const LevelSnapshot &, const LevelSnapshot &) = default;
};

/// The view's level, which must be complete. Heights that are the same in `earlier` are shared with it.
LevelSnapshot snapshotOf(const GLMapWidget &view, const LevelSnapshot &earlier = {});

/// Turns the view's level from `shown`, which it is, into `wanted`, and has it drawn again: textures,
/// lists and normals are made anew only where they differ.
void restore(GLMapWidget &view, const LevelSnapshot &shown, const LevelSnapshot &wanted);
