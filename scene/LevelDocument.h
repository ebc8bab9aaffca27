#pragma once

#include "scene/CISG.h"

class BackgroundNode;
class CharSetNode;
class MeshNode;

/// A level as the editor holds it: the graph, and the three nodes that the window and the view
/// work on. The references name the last node of their type that the factory made; the graph owns
/// the nodes.
class LevelDocument : public CISG {
public:
    BackgroundNode *background = nullptr;
    MeshNode *mesh = nullptr;
    CharSetNode *charSet = nullptr;

    std::unique_ptr<SceneNode> createNode(const QString &tag) override;

    /// Adds what a damaged or empty file left out, so that every command finds all three nodes:
    /// an environment (first, since it draws before the terrain), a flat 60 × 4 terrain, and a
    /// character set of at least 16 players.
    void complete();
};
