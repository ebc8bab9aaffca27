#pragma once

#include "map/TerrainMesh.h"
#include "scene/SceneNode.h"

/// The terrain node of a level.
class MeshNode : public SceneNode, public TerrainMesh {
public:
    void draw(float time) override;
    void drawSecondPass(float) override {}
    void initGL() override;
    void writeXml(QTextStream &out) const override;
    bool readXml(QDomElement element, CISG *factory) override;
};
