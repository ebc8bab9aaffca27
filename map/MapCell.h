#pragma once

#include "map/math/Vec3.h"

#include <array>

class CharacterNode;

/// A corner of a cell's picture, laid out as OpenGL's GL_T2F_C3F_V3F.
struct CellCorner {
    std::array<float, 2> picture;
    std::array<float, 3> color;
    Vec3 position;
};

/// One of the overview's 400 cells. Its colour shows the height level it was set to.
class MapCell {
public:
    bool selected = false;
    bool vacant = true; ///< No valid player stands here.
    std::array<Vec3, 4> corners;
    bool water = false; ///< The cell is a lake.
    int index = 0;      ///< 0 to 399: column + 20 · row.
    double halfSize = 0.05;
    std::array<float, 3> color{0.95F, 0.5F, 0.5F};
    CharacterNode *player = nullptr; ///< Meaningful only while vacant is false; not owned.

    /// Moves the cell one level up or down. False, changing nothing, where it can go no further.
    bool stepLevel(bool up);

    /// The level that shows a height in map units; a hollow becomes a lake.
    void showHeight(float height);

    void setColor(float r, float g, float b) { color = {r, g, b}; }

    /// The cell without its player, around a centre on the overview's plane.
    std::array<CellCorner, 4> picture(float centerX, float centerY);

    /// Draws the cell and its player around the modelview's origin. Forgets a player that has
    /// moved to another cell. Needs a current OpenGL context.
    void draw();

    /// Puts the player into this cell, and the cell into the player.
    void place(CharacterNode *newPlayer);

private:
    void drawPlayerMark() const;
};
