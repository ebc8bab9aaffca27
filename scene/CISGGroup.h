#pragma once

#include "scene/SceneNode.h"

#include <list>
#include <memory>

/// A node that holds other nodes, in drawing order.
class CISGGroup : public SceneNode {
public:
    std::list<std::unique_ptr<SceneNode>> children;

    void draw(float time) override;
    void drawSecondPass(float time) override;
    void initGL() override;
    void writeXml(QTextStream &out) const override;
    bool readXml(QDomElement element, CISG *factory) override;
};
