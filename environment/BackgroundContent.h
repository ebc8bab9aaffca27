#pragma once

#include <QString>
#include <array>

/// What a level stores of its surroundings, and the game's options: a value, apart from how it is
/// drawn or read. Colours are red, green, blue from 0 to 1.
struct BackgroundContent {
    bool water = true; ///< The water plane is shown.
    bool fog = false;  ///< Fog; also hides the sky box.
    bool waterWalking = true;
    bool craters = true;
    bool bengala = true;
    bool deathTouch = true;
    bool dynamicTime = true; ///< The sun moves during the battle.

    QString cubeTexture; ///< Base file name of the sky, see cubeFaceFileName.
    QString waterTexture;
    QString groundTexture;
    QString birdTexture; ///< Stored for the game; the editor draws no birds.

    std::array<float, 4> sunColor{1, 0.95F, 0.85F, 1};
    std::array<float, 3> groundColor{1, 1, 1};
    std::array<float, 3> waterColor{0.2F, 0.4F, 0.8F};
    int dayTime = 70; ///< The sun's angle in degrees: 30 sunrise, 70 noon, 171 night.
    int sunSpeed = 15;
    int birdsNumber = 3;
    float gravity = 9.8F;

    friend bool operator==(const BackgroundContent &, const BackgroundContent &) = default;
};
