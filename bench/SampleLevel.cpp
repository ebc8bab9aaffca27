#include "bench/SampleLevel.h"

#include "map/MeshNode.h"

#include <QTextStream>
#include <cmath>

void fillWithHills(LevelDocument &document, int dimension, int density) {
    document.complete();
    MeshNode &mesh = *document.mesh;
    mesh.setSize(dimension, density);
    const int n = TerrainMesh::pointsPerSideOf(dimension, density);
    int point = 0;
    mesh.build([&point, n] {
        constexpr float turns = 20.0F;
        const int column = point % n;
        const int row = point / n;
        const float u = turns * static_cast<float>(column) / static_cast<float>(n);
        const float v = turns * static_cast<float>(row) / static_cast<float>(n);
        ++point;
        return 2.5F * std::sin(0.7F * u) * std::cos(0.5F * v) + 0.8F * std::sin(1.9F * v + u) + 0.6F;
    });
    mesh.computeNormals();
}

QByteArray levelBytes(const LevelDocument &document) {
    QByteArray bytes;
    QTextStream out(&bytes);
    document.write(out);
    out.flush();
    return bytes;
}
