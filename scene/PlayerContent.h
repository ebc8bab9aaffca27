#pragma once

#include <QString>

/// What the editor knows of a player: the codes that a file stores, the names that the window
/// shows, and where the player starts. A value; the choice of the current player is none of it.
struct PlayerContent {
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
    float weaponValue = 0.5F;

    friend bool operator==(const PlayerContent &, const PlayerContent &) = default;
};
