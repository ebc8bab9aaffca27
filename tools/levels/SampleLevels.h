#pragma once

#include "scene/LevelDocument.h"

#include <array>
#include <vector>

class Sculptor;

struct SamplePlayer {
    const char *name;
    int model;
    int team;
    float weapon;    ///< 0.3 small gun, 0.5 standard, 0.7 Annientatore.
    int column = -1; ///< Without a cell the player starts anywhere.
    int row = -1;
};

/// What a sample level has that another has not.
struct SampleLevel {
    using Color = std::array<float, 3>;

    const char *fileName; ///< Relative to the workspace.
    int dimension;
    int density;
    const char *ground;
    const char *water; ///< Null for a dry level.
    const char *sky;
    const char *bird;
    Color groundColor;
    Color waterColor;
    Color sun;
    int dayTime;
    bool fog;
    float gravity;
    int sunSpeed;
    int birds;
    bool waterWalking;
    bool deathTouch;
    bool dynamicTime;
    void (*shape)(Sculptor &);
    std::vector<SamplePlayer> players;

    /// Fills a complete document.
    void make(LevelDocument &level) const;
};

/// The start level and the samples, in the order a new user would look at them.
const std::vector<SampleLevel> &sampleLevels();
