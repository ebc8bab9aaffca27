#pragma once

#include "scene/PlayerContent.h"
#include "scene/SceneNode.h"

/// One of a level's players as a node of the graph.
class CharacterNode : public SceneNode, public PlayerContent {
public:
    bool current = false; ///< The player that the window shows.

    /// Only active players that stand on a cell, or start anywhere, are written to a file.
    bool isSaved() const { return active && (placed || cell == randomStart); }

    void draw(float) override {}
    void drawSecondPass(float) override {}
    void writeXml(QTextStream &out) const override;
    bool readXml(QDomElement element, CISG *factory) override;
};
