#include "map/CellGrid.h"

#include "environment/OpenGLSetup.h"
#include "environment/TextureUpload.h"
#include "map/Picking.h"
#include "map/TerrainMesh.h"
#include "scene/CharacterNode.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float heightPerStep = 0.6666667F;
constexpr double cellSize = 0.1; ///< Of the overview, which runs from −1 to 1.

} // namespace

CellGrid::~CellGrid() {
    if (tileTexture != 0 && hasCurrentGLContext()) {
        glDeleteTextures(1, &tileTexture);
    }
}

void CellGrid::resize(int count) {
    cells.resize(static_cast<std::size_t>(count));
    int number = 0;
    for (MapCell &cell : cells) {
        cell.index = number++;
    }
}

void CellGrid::setSize(int newDensity, int newDimension) {
    density = newDensity;
    dimension = newDimension;
    pointsPerSide = TerrainMesh::pointsPerSideOf(dimension, density);
}

int CellGrid::pointsPerCell() const {
    const bool bound = terrain != nullptr && terrain->pointsPerSide() == pointsPerSide;
    return bound ? pointsPerSide / cellsPerSide : 0;
}

int CellGrid::firstPointOf(const MapCell &cell) const {
    return (pointsPerSide * (cell.index / cellsPerSide) + cell.index % cellsPerSide) * pointsPerCell();
}

std::optional<CellGrid::Heights> CellGrid::heightsOf(const MapCell &cell) const {
    const int k = pointsPerCell();
    if (k == 0) {
        return std::nullopt;
    }
    const auto height = [this, first = firstPointOf(cell)](int row, int column) {
        const int point = first + row * pointsPerSide + column;
        return terrain->vertices[static_cast<std::size_t>(point)].position.y;
    };
    Heights heights{height(0, 0), height(0, 0)};
    for (int row = 0; row < k; ++row) {
        for (int column = 0; column < k; ++column) {
            heights.lowest = std::min(heights.lowest, height(row, column));
            heights.highest = std::max(heights.highest, height(row, column));
        }
    }
    return heights;
}

void CellGrid::changeSelectedHeight(float steps) {
    const int k = pointsPerCell();
    if (k == 0) {
        return;
    }
    bool changed = false;
    for (MapCell &cell : cells) {
        if (!cell.selected || !cell.stepLevel(steps > 0)) {
            continue;
        }
        changed = steps != 0;
        const int first = firstPointOf(cell);
        for (int row = 0; row < k; ++row) {
            for (int column = 0; column < k; ++column) {
                const int point = first + row * pointsPerSide + column;
                terrain->vertices[static_cast<std::size_t>(point)].position.y += steps * heightPerStep;
            }
        }
    }
    if (changed) {
        terrain->markChanged();
    }
}

void CellGrid::recolourFromHeights() {
    const int k = pointsPerCell();
    if (k == 0) {
        return;
    }
    const int last = pointsPerSide - 1;
    const auto height = [&](int row, int column) {
        // The samples below the last row of cells lie beyond the grid: its last row stands in.
        const int point = std::min(row, last) * pointsPerSide + std::min(column, last);
        return terrain->vertices[static_cast<std::size_t>(point)].position.y;
    };
    for (MapCell &cell : cells) {
        const int row = cell.index / cellsPerSide * k;
        const int column = cell.index % cellsPerSide * k;
        cell.showHeight((height(row, column) + height(row, column + k - 1) + height(row + k, column) +
                         height(row + k, column + k - 1) + 6 * height(row + k / 2, column + k / 2)) *
                        0.1F);
    }
}

void CellGrid::loadTileTexture() {
    glEnable(GL_TEXTURE_2D);
    if (tileTexture == 0) {
        glGenTextures(1, &tileTexture);
    }
    const QImage picture = readGLImage(QStringLiteral("./data/textures/tile.png"));
    glBindTexture(GL_TEXTURE_2D, tileTexture);
    uploadWithMipmaps(GL_TEXTURE_2D, picture);
    if (!cells.empty()) {
        cells.front().selected = true;
    }
}

void CellGrid::drawOverview() {
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview.data());
    glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    glBindTexture(GL_TEXTURE_2D, tileTexture);
    glEnable(GL_TEXTURE_2D);
    // The many cells without a player go in one call.
    std::vector<CellCorner> corners;
    corners.reserve(4 * cells.size());
    for (MapCell &cell : cells) {
        const int column = cell.index % cellsPerSide;
        const int row = cell.index / cellsPerSide;
        const double x = 0.95 - cellSize * column;
        const double y = -0.95 + cellSize * row;
        if (cell.vacant) {
            const auto picture = cell.picture(static_cast<float>(x), static_cast<float>(y));
            corners.insert(corners.end(), picture.begin(), picture.end());
            continue;
        }
        glPushMatrix();
        glLoadIdentity();
        glTranslated(x, y, 0);
        cell.draw();
        glPopMatrix();
    }
    glPushMatrix();
    glLoadIdentity();
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glInterleavedArrays(GL_T2F_C3F_V3F, 0, corners.data());
    glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(corners.size()));
    glPopClientAttrib();
    glPopMatrix();
}

std::optional<CellPosition> CellGrid::pickCell(int x, int y) const {
    const auto point = unprojectedPoint(x, y, modelview, projection, viewport);
    if (!point) {
        return std::nullopt;
    }
    const auto fx = static_cast<float>(point->x);
    const auto fy = static_cast<float>(point->y);
    if (std::fabs(fx) >= 1 || std::fabs(fy) >= 1) {
        return std::nullopt;
    }
    const auto steps = [](float f) { return static_cast<int>(10 * f) - (f < 0 ? 1 : 0); };
    return CellPosition{9 - steps(fx), steps(fy) + 10};
}

void CellGrid::clearSelection() {
    for (MapCell &cell : cells) {
        cell.selected = false;
    }
}

void CellGrid::selectRect(int column1, int row1, int column2, int row2) {
    const auto [left, right] = std::minmax(column1, column2);
    const auto [low, high] = std::minmax(row1, row2);
    for (MapCell &cell : cells) {
        const int column = cell.index % cellsPerSide;
        const int row = cell.index / cellsPerSide;
        if (column >= left && column <= right && row >= low && row <= high) {
            cell.selected = true;
        }
    }
}

std::pair<CellPosition, CellPosition> CellGrid::boundsOfSelection() const {
    CellPosition first;
    CellPosition last;
    for (const MapCell &cell : cells) {
        if (cell.selected) {
            const CellPosition at{cell.index % cellsPerSide, cell.index / cellsPerSide};
            first = first.isNone() ? at : CellPosition{std::min(first.column, at.column), first.row};
            last = CellPosition{std::max(last.column, at.column), at.row};
        }
    }
    return {first, last};
}

bool CellGrid::placeInSelected(CharacterNode *player) {
    const auto free = std::find_if(cells.begin(), cells.end(),
                                   [](const MapCell &cell) { return cell.selected && cell.vacant; });
    if (free == cells.end()) {
        return false;
    }
    free->place(player);
    return true;
}

void CellGrid::placeAtCell(CharacterNode *player) {
    if (player->cell >= 0 && static_cast<std::size_t>(player->cell) < cells.size()) {
        cells[static_cast<std::size_t>(player->cell)].place(player);
    }
}

void CellGrid::forgetPlayers() {
    for (MapCell &cell : cells) {
        cell.vacant = true;
        cell.player = nullptr;
    }
}
