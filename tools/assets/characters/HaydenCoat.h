#pragma once

#include "tools/assets/characters/Figure.h"

/// Where the skirt of Hayden's coat swings: a flap on each side and the back, each of two bones.
struct CoatBones {
    struct Flap {
        Bone upper = 0;
        Bone lower = 0;
    };
    std::array<Flap, 2> side;
    Flap back;
};

CoatBones addCoatBones(Figure &figure);

/// The coat from its hem to its collar, one surface with an inside of its own, its belt and sleeves.
void addCoat(Figure &figure, const CoatBones &bones);
