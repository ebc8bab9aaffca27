#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"

#include <cstdio>

/// Reads a level and says how large it is.
int main(int argc, char **argv) {
    LevelDocument level;
    if (argc != 2 || !level.load(QString::fromLocal8Bit(argv[1])) || level.mesh == nullptr) {
        return 1;
    }
    std::printf("%zu points\n", level.mesh->vertices.size());
    return 0;
}
