#pragma once

#include "tools/assets/characters/Rig.h"

#include <initializer_list>

/// What a body does at one moment, told from its rest. Shifts are units; turns are degrees about x, y
/// and z, which for a body that faces +x means: x leans to its right, y bows forward, z turns to its
/// left (where the preview's viewer stands, 30 degrees off the front).
struct Stance {
    glm::vec3 shift{0.0f}; ///< Of the pelvis and all above; the feet stay where `foot` says.
    glm::vec3 pelvis{0.0f};
    glm::vec3 waist{0.0f};
    glm::vec3 chest{0.0f};
    glm::vec3 neck{0.0f};
    glm::vec3 head{0.0f};

    /// The weapon, and with it both hands: turned about the grip, then carried along by the chest.
    glm::vec3 weaponShift{0.0f};
    glm::vec3 weaponTurn{0.0f};

    /// Each foot from where it rests; the turn is about the ankle. A foot left at zero stands still.
    struct Foot {
        glm::vec3 shift{0.0f};
        glm::vec3 turn{0.0f};
    };
    std::array<Foot, 2> foot; ///< By Side.

    /// The left hand away from the weapon: 0 holds it, 1 is at `wrist`, a place at rest that moves with
    /// the bone `with` (0, the pelvis, stands for the chest). The hand keeps in line with its forearm;
    /// `turn` is about the wrist, before that.
    struct FreeHand {
        float amount = 0.0f;
        glm::vec3 wrist{0.0f};
        glm::vec3 turn{0.0f};
        Bone with = 0;
    };
    FreeHand left;

    /// All of the body, feet too, after everything else: turned about the point of the floor below the
    /// middle of the feet.
    glm::vec3 wholeTurn{0.0f};
    glm::vec3 wholeShift{0.0f};
    bool lying = false; ///< Its lowest point is put on the floor.
};

/// A value that passes smoothly through {phase, value}, phases rising from 0 to below 1, and from the
/// last back to the first.
float keyed(float phase, std::initializer_list<glm::vec2> keys);
