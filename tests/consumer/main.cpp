#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"

#include <cstdio>

namespace {

void printTerrain(const MeshNode &terrain) {
    const int side = terrain.dimension * terrain.density;
    std::printf("%d x %d points on %d map units\n", side, side, terrain.dimension);
    int column = 0;
    for (const TerrainVertex &vertex : terrain.vertices) {
        column = column % side + 1;
        std::printf("%.6g%c", static_cast<double>(vertex.position.y), column == side ? '\n' : ' ');
    }
}

void printPlayers(const CharSetNode &players) {
    for (const auto &player : players.characters) {
        // The reader fills up with players that are in no file.
        if (player->active) {
            std::printf("%s: %s, %s, weapon %.6g, waits %d, cell %d\n", qPrintable(player->name),
                        qPrintable(player->model), qPrintable(player->team),
                        static_cast<double>(player->weaponValue), player->waitFor, player->cell);
        }
    }
}

} // namespace

/// Reads a level and prints what docs/examples/read_level.py prints of it.
int main(int argc, char **argv) {
    LevelDocument level;
    if (argc != 2 || !level.load(QString::fromLocal8Bit(argv[1])) || level.mesh == nullptr ||
        level.charSet == nullptr) {
        return 1;
    }
    printTerrain(*level.mesh);
    printPlayers(*level.charSet);
    return 0;
}
