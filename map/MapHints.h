#pragma once

#include "map/CellGrid.h"

#include <QString>

/// What stands at a cell, in lines of plain text: its number, its heights, whether it is a lake,
/// and the player on it.
QString cellHint(const CellGrid &grid, CellPosition position);

/// A place of the map and the terrain's height there, in map units, in lines of plain text. Empty
/// for a place beyond the map.
QString placeHint(const TerrainMesh &terrain, double x, double z);
