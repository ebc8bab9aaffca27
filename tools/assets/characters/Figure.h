#pragma once

#include "tools/assets/characters/Part.h"
#include "tools/assets/characters/Rig.h"

/// Frames of every model: a loop of 40 and its first frame again.
constexpr unsigned loopFrames = 40;

/// How a figure idles: lengths in units, turns in degrees, over one loop.
struct IdleMotion {
    float breath = 1.6f; ///< Degrees the chest lifts.
    unsigned breaths = 5;
    float sway = 0.7f;  ///< Shift of the weight to each side.
    float sink = 0.35f; ///< How far the hips go down with each breath.
    float look = 32.0f; ///< Turn of the head to each side.
    float lookDown = 6.0f;
    float lift = 1.5f; ///< Degrees the weapon rises and sinks.
    bool leftHandOnWeapon = true;
};

/// A character: its parts at rest and how it moves.
struct Figure {
    explicit Figure(const RigPlan &plan) : rig(plan) {}

    Rig rig;
    std::vector<Part> parts;
    IdleMotion idle;
    /// Moves what only this figure has, before the pose settles; phase 0 … 1 over the loop.
    std::function<void(Pose &, float phase)> extra;

    Part &add(Material material, const glm::vec3 &colour, Profile profile,
              const glm::vec3 &front = {1, 0, 0});
};

/// The figure's pose at a phase of the loop.
Pose idlePose(const Figure &figure, float phase);

/// Poses of all frames; the last is the first again.
std::vector<Pose> idleFrames(const Figure &figure);

/// sin of `turns` full turns over the loop.
float wave(float phase, unsigned turns, float offset = 0.0f);

// The catalogue's characters.
Figure makeTerminator();
Figure makeHayden();
Figure makeHunter();
Figure makeRat();
Figure makeDire();
Figure makeWalker();
Figure makeMarine();

// Its weapons, each a set of parts around the grip: the barrel along x, up along z.
std::vector<Part> makeSmallGun();
std::vector<Part> makeAnnientatore();
std::vector<Part> makeStandard();
