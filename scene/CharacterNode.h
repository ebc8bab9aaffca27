#pragma once

#include "scene/SceneNode.h"

#include <QString>

/// One of a level's players: the codes that a file stores, the names that the editor shows, and
/// where the player starts.
class CharacterNode : public SceneNode {
public:
    /// Values of `cell` that name no cell of the map.
    static constexpr int randomStart = -1;
    static constexpr int notPlaced = -2;

    /// Value of `waitFor` for a player that never shoots.
    static constexpr int neverShoots = 99;

    static constexpr int teamCount = 4;

    QString name = QStringLiteral("john doe");
    QString weapon = QStringLiteral("standard");
    QString team = QStringLiteral("blue");
    QString model = QStringLiteral("Terminator");
    int modelIndex = 0;
    int teamIndex = 0;
    int waitFor = 0;
    int cell = notPlaced; ///< 0 to 399: the cell of the overview the player starts on.
    bool placed = false;
    bool active = false;
    bool current = false;
    float weaponValue = 0.5F;

    /// Only active players that stand on a cell, or start anywhere, are written to a file.
    bool isSaved() const { return active && (placed || cell == randomStart); }

    void draw(float) override {}
    void drawSecondPass(float) override {}
    void writeXml(QTextStream &out) const override;
    bool readXml(QDomElement element, CISG *factory) override;
};
