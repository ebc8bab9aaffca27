#pragma once

#include "environment/BackgroundRenderer.h"
#include "scene/SceneNode.h"

/// The environment node of a level: BackgroundRenderer as a node of the graph.
class BackgroundNode : public BackgroundRenderer, public SceneNode {
public:
    void drawSkyAndGround(float t) override;

    void draw(float time) override;
    void drawSecondPass(float time) override;
    void initGL() override;
    void writeXml(QTextStream &out) const override;
    bool readXml(QDomElement element, CISG *factory) override;
};
