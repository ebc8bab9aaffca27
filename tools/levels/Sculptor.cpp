#include "tools/levels/Sculptor.h"

#include "map/Erosion.h"
#include "map/TerrainMesh.h"

#include <map>
#include <vector>

Sculptor::Sculptor(TerrainMesh &sculpted) : terrain(sculpted), cells(&sculpted) {
    cells.resize(CellGrid::cellCount);
    cells.setSize(terrain.density, terrain.dimension);
    cells.recolourFromHeights();
}

void Sculptor::turnWheel(const std::function<int(int column, int row)> &notches) {
    std::map<int, std::vector<MapCell *>> cellsByNotches;
    for (MapCell &cell : cells.cells) {
        const int wanted = notches(cell.index % CellGrid::cellsPerSide, cell.index / CellGrid::cellsPerSide);
        if (wanted != 0) {
            cellsByNotches[wanted].push_back(&cell);
        }
    }
    for (const auto &[wanted, chosen] : cellsByNotches) {
        cells.clearSelection();
        for (MapCell *cell : chosen) {
            cell->selected = true;
        }
        cells.changeSelectedHeight(static_cast<float>(wanted));
    }
}

void Sculptor::erodeTimes(int times) {
    for (int i = 0; i < times; ++i) {
        // The editor makes as many passes as there are points to a map unit.
        erode(terrain, terrain.density);
    }
    cells.recolourFromHeights();
}
