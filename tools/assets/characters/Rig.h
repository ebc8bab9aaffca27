#pragma once

#include "tools/assets/characters/Skeleton.h"

#include <array>

/// Index of a paired limb.
enum Side : unsigned { Right = 0, Left = 1 };

/// The left side's y is positive: `y` of a joint that is given for the left.
inline glm::vec3 mirrored(const glm::vec3 &left, Side side) {
    return side == Left ? left : glm::vec3(left.x, -left.y, left.z);
}

/// Measures of a two-legged, two-armed figure at rest, weapon in hand.
struct RigPlan {
    glm::vec3 pelvis{0, 0, 29};
    glm::vec3 waist{0, 0, 33};
    glm::vec3 chest{0, 0, 38};
    glm::vec3 neck{0, 0, 46.5f};
    glm::vec3 head{0.6f, 0, 49};
    glm::vec3 shoulder{0, 7.5f, 44.5f}; ///< Paired joints: of the left side.
    glm::vec3 hip{0, 3.6f, 28};
    std::array<glm::vec3, 2> ankle{glm::vec3(-3, -5, 3), glm::vec3(3, 5, 3)};
    std::array<glm::vec3, 2> kneePole{glm::vec3(1, -0.25f, 0), glm::vec3(1, 0.25f, 0)};
    std::array<glm::vec3, 2> elbowPole{glm::vec3(-0.5f, -0.7f, -1), glm::vec3(-0.1f, 0.8f, -1)};
    float upperArm = 11;
    float foreArm = 10.5f;
    float thigh = 13.2f;
    float shin = 13;

    glm::vec3 grip{9, -5, 35}; ///< Middle of the right fist.
    glm::vec3 aim{0, -6, 38};  ///< Degrees the weapon is turned about x, y and z from straight ahead.
    float weaponSize = 1;
    glm::vec3 rightWrist{-3.7f, -0.9f, -1.0f}; ///< Seen from the weapon, in its units; bent to the forearm.
    glm::vec3 leftWrist{6.0f, 2.4f, -1.2f};
};

/// Heels of the hands that hold a weapon, seen from it: behind the grip and below the fore-end.
constexpr std::array<glm::vec3, 2> handHeel{glm::vec3(-2.2f, -0.5f, -0.75f), glm::vec3(7.5f, 1.45f, -0.2f)};

/// The skeleton of such a figure. Left and right are told apart by Side.
struct Rig {
    explicit Rig(const RigPlan &plan);

    Skeleton skeleton;
    Bone pelvis = 0;
    Bone waist = 0;
    Bone chest = 0;
    Bone neck = 0;
    Bone head = 0;
    std::array<Limb, 2> arm;
    std::array<Limb, 2> leg;
    glm::mat4 weapon; ///< From the weapon's own space to the resting figure's.

    glm::vec3 at(Bone bone) const { return skeleton.joint(bone); }
    /// A point given in the weapon's space.
    glm::vec3 atWeapon(const glm::vec3 &point) const { return glm::vec3(weapon * glm::vec4(point, 1.0f)); }
    glm::vec3 weaponWay(const glm::vec3 &direction) const {
        return glm::normalize(glm::vec3(weapon * glm::vec4(direction, 0.0f)));
    }
};
