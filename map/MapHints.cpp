#include "map/MapHints.h"

#include "map/TerrainMesh.h"
#include "scene/CharacterNode.h"

#include <QCoreApplication>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace {

constexpr int longestName = 40;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(editorMain)
};

QString inMapUnits(double value, int digits) {
    const double scale = std::pow(10.0, digits);
    // The sum takes the sign off a zero.
    return QString::number(std::round(value * scale) / scale + 0.0, 'f', digits);
}

/// A name of any length and kind as a part of one line.
QString inOneLine(const QString &name) {
    const QString line = name.left(longestName + 1).simplified();
    return name.size() <= longestName ? line : line.left(longestName) + u'\u2026';
}

/// The height between the four grid points around a place of the map.
double heightAt(const TerrainMesh &terrain, double x, double z) {
    const double last = terrain.pointsPerSide() - 1;
    const double column = std::min(x * terrain.density, last);
    const double row = std::min(z * terrain.density, last);
    const auto height = [&terrain](double atRow, double atColumn) {
        const double point = atRow * terrain.pointsPerSide() + atColumn;
        return static_cast<double>(terrain.vertices[static_cast<std::size_t>(point)].position.y);
    };
    const double above = std::floor(row);
    const double left = std::floor(column);
    const auto along = [&](double atRow) {
        return std::lerp(height(atRow, left), height(atRow, std::ceil(column)), column - left);
    };
    return std::lerp(along(above), along(std::ceil(row)), row - above);
}

} // namespace

QString cellHint(const CellGrid &grid, CellPosition position) {
    const MapCell &cell = grid.cells[static_cast<std::size_t>(position.number())];
    // The first line decides whether the toolkit reads markup; names further down stay as they are.
    QStringList lines{Texts::tr("Cell %1").arg(cell.index)};
    if (const auto heights = grid.heightsOf(cell)) {
        lines.append(Texts::tr("Lowest point: %1").arg(inMapUnits(heights->lowest, 2)));
        lines.append(Texts::tr("Highest point: %1").arg(inMapUnits(heights->highest, 2)));
    }
    lines.append(cell.water ? Texts::tr("Lake: yes") : Texts::tr("Lake: no"));
    // A cell notices only when it is drawn that its player has moved.
    if (!cell.vacant && cell.player->cell == cell.index) {
        lines.append(
            Texts::tr("Player: %1 (%2)").arg(inOneLine(cell.player->name), inOneLine(cell.player->team)));
        if (!cell.player->active) {
            lines.append(Texts::tr("not active in game"));
        }
    }
    return lines.join(u'\n');
}

QString placeHint(const TerrainMesh &terrain, double x, double z) {
    const double side = terrain.dimension;
    if (terrain.vertices.empty() || x < 0 || x > side || z < 0 || z > side) {
        return {};
    }
    return Texts::tr("Position: %1, %2").arg(inMapUnits(x, 1), inMapUnits(z, 1)) + u'\n' +
           Texts::tr("Height: %1").arg(inMapUnits(heightAt(terrain, x, z), 2));
}
