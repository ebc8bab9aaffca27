#include "map/MeshNode.h"

#include "scene/CISG.h"
#include "scene/LevelText.h"

#include <QTextStream>

void MeshNode::draw(float) {
    TerrainMesh::draw();
}

void MeshNode::initGL() {
    loadTexture();
}

void MeshNode::writeXml(QTextStream &out) const {
    // A height takes some ten bytes.
    QByteArray text;
    text.reserve(256 + static_cast<qsizetype>(randomGeography ? 0 : vertices.size() * 10));
    text += "<MeshNode randomGeography=\"";
    text += randomGeography ? '1' : '0';
    text += "\" texture=\"" + attributeText(texture) + "\" density=\"";
    appendInt(text, density);
    text += "\" dimension=\"";
    appendInt(text, dimension);
    text += "\"  color=\"";
    appendReals(text, color);
    text += "\">\n";
    if (!randomGeography) {
        for (const TerrainVertex &vertex : vertices) {
            appendReal(text, vertex.position.y);
            text += ' ';
        }
    }
    text += "</MeshNode>\n";
    out << QLatin1String(text);
}

bool MeshNode::readXml(QDomElement element, CISG *factory) {
    if (element.tagName() != QLatin1String("MeshNode")) {
        return false;
    }
    texture = element.attribute(QStringLiteral("texture"), QStringLiteral(" "));
    setSize(intAttribute(element, QStringLiteral("dimension")),
            intAttribute(element, QStringLiteral("density")));
    randomGeography = intAttribute(element, QStringLiteral("randomGeography")) == 1;
    color = {1, 1, 1};
    ValueReader(element.attribute(QStringLiteral("color"))).read(color);

    const std::int64_t n = pointsPerSideOf(dimension, density);
    if (factory != nullptr && !factory->takeTerrainPoints(n * n)) {
        clear();
        return true;
    }
    if (randomGeography) {
        build();
        return true;
    }
    ValueReader heights(element.text());
    build([&heights] {
        float height = 0;
        heights.read(height);
        return height;
    });
    return true;
}
