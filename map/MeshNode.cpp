#include "map/MeshNode.h"

#include "scene/CISG.h"
#include "scene/LevelText.h"

#include <QTextStream>

namespace {

/// Every height and a space. The text is made as long as it can get, filled, and cut off.
void appendHeights(QByteArray &text, const std::vector<TerrainVertex> &vertices) {
    const qsizetype before = text.size();
    text.resize(before + static_cast<qsizetype>(vertices.size() * (longestReal + 1)));
    char *to = text.data() + before;
    for (const TerrainVertex &vertex : vertices) {
        to = writeReal(to, vertex.position.y);
        *to++ = ' ';
    }
    text.truncate(to - text.constData());
}

} // namespace

void MeshNode::draw(float) {
    TerrainMesh::draw();
}

void MeshNode::initGL() {
    loadTexture();
}

void MeshNode::writeXml(QTextStream &out) const {
    QByteArray text;
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
        appendHeights(text, vertices);
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
