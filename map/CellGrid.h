#pragma once

#include "map/MapCell.h"

#include <GL/gl.h>
#include <array>
#include <optional>
#include <utility>
#include <vector>

class TerrainMesh;

/// Column 0 is at the right edge of the overview, row 0 at the bottom.
struct CellPosition {
    int column = -1;
    int row = -1;

    bool isNone() const { return column == -1 && row == -1; }
    bool isOnMap() const;
    int number() const; ///< Of the cell; meaningful on the map only.
    friend bool operator==(const CellPosition &, const CellPosition &) = default;
};

/// The overview: 20 × 20 cells over a terrain, each covering K × K of its points, K = N / 20.
class CellGrid {
public:
    static constexpr int cellsPerSide = 20;
    static constexpr int cellCount = cellsPerSide * cellsPerSide;

    explicit CellGrid(TerrainMesh *newTerrain) : terrain(newTerrain) {}
    CellGrid(const CellGrid &) = delete;
    CellGrid &operator=(const CellGrid &) = delete;

    /// Deletes the tile texture if a context is current.
    ~CellGrid();

    std::vector<MapCell> cells;
    TerrainMesh *terrain = nullptr;       ///< The terrain being edited; not owned, null until bound.
    std::array<GLdouble, 16> modelview{}; ///< With projection and viewport: as last drawn, for picking.
    std::array<GLdouble, 16> projection{};
    std::array<GLint, 4> viewport{}; ///< In device pixels.
    GLuint tileTexture = 0;
    int density = 0;
    int dimension = 0;
    int pointsPerSide = 0;

    void resize(int count);
    void setTerrain(TerrainMesh *newTerrain) { terrain = newTerrain; }
    void setSize(int newDensity, int newDimension);

    /// Raises (steps > 0) or lowers every selected cell by one level, and its points by 2/3 map
    /// unit per step.
    void changeSelectedHeight(float steps);

    /// Recomputes colour and water flag of every cell from the terrain.
    void recolourFromHeights();

    /// Makes or refreshes the cell picture, and selects cell 0. Needs a current OpenGL context.
    void loadTileTexture();

    /// Draws all cells and captures the matrices for pickCell. Needs a current OpenGL context.
    void drawOverview();

    /// The cell under a position in device pixels, y downward, as last drawn. Reads the depth
    /// buffer: needs the current OpenGL context of that drawing.
    std::optional<CellPosition> pickCell(int x, int y) const;

    void clearSelection();

    /// Selects the rectangle between two cells, both included.
    void selectRect(int column1, int row1, int column2, int row2);

    /// The first and the last corner of the smallest rectangle that holds the selection; none
    /// where nothing is selected.
    std::pair<CellPosition, CellPosition> boundsOfSelection() const;

    /// The lowest and the highest point of a cell, in map units.
    struct Heights {
        float lowest = 0;
        float highest = 0;
    };
    /// Nothing where no terrain of the grid's size is bound.
    std::optional<Heights> heightsOf(const MapCell &cell) const;

    /// Puts the player into the first selected vacant cell; false where there is none.
    bool placeInSelected(CharacterNode *player);

    /// Puts the player into the cell that its `cell` names; nothing for a number outside 0 to 399.
    void placeAtCell(CharacterNode *player);

    /// Every cell becomes vacant; the players' own fields stay.
    void forgetPlayers();

private:
    int pointsPerCell() const;
    int firstPointOf(const MapCell &cell) const;
};

inline bool CellPosition::isOnMap() const {
    const auto inside = [](int i) { return i >= 0 && i < CellGrid::cellsPerSide; };
    return inside(column) && inside(row);
}

inline int CellPosition::number() const {
    return column + CellGrid::cellsPerSide * row;
}
