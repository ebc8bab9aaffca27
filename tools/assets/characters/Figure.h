#pragma once

#include "tools/assets/characters/Part.h"
#include "tools/assets/characters/Stance.h"

#include <string>
#include <string_view>

// A figure is made in three steps; Marine.cpp is the shortest example.
//
// Shape. A figure is a list of parts, each a tube through rings. Every tube is closed: where it does not
// end in a tip, a cap is put on by itself, so no part shows its inside. Let parts overlap where the body
// bends, and let one tube run over a joint (limbRings) rather than end at it. Cloth that hangs free is a
// closed tube too: a flat profile with both sides. `druvelk-figure DIRECTORY OUT` measures what is
// left and shows the figure (insides in magenta); `druvelk-assets --only Rat/tris TREE` makes the models
// of one figure without its skins.
//
// Hands. addFist (Body.h) closes a hand around the weapon: palm, thumb, fingers; the right one at the grip
// with a finger at the trigger, the left one around the fore-end. All weapons have grip and fore-end in the
// same places, so one shape serves the three. Wrists are where RigPlan says.
//
// Motion. `stand` writes the idle as a Stance over one loop of 40 frames, 20 seconds in the preview: so at
// most about 3 units from one frame to the next. Use keyed() and wave(); the left hand leaves the weapon
// through Stance::left. `extra` moves bones of the figure's own (tail, cape, jaw). The other animations are
// the same for all (Animations.cpp); `manner` may change them.

/// Which part of which animation is shown.
struct Moment {
    std::string_view animation; ///< As in the names of frames: "stand", "run", "crwalk" …
    float phase = 0.0f;         ///< 0 … 1; an animation that does not loop ends at 1.
};

/// A character: its parts at rest and how it moves.
struct Figure {
    explicit Figure(const RigPlan &plan) : rig(plan) {}

    Rig rig;
    std::vector<Part> parts;
    /// The idle of this figure: fills a stance at rest, phase 0 … 1 over the loop.
    std::function<void(Stance &, float phase)> stand;
    /// What this figure does otherwise than others, in any animation; called last.
    std::function<void(Stance &, const Moment &)> manner;
    /// Moves what only this figure has, before the pose settles; phase 0 … 1 over the animation.
    std::function<void(Pose &, float phase)> extra;

    Part &add(Material material, const glm::vec3 &colour, Profile profile,
              const glm::vec3 &front = {1, 0, 0});
};

/// The body in this stance: torso and head turned, arms and legs bent so that hands and feet are where the
/// stance wants them.
Pose poseOf(const Figure &figure, const Stance &stance, float phase);

/// A frame of a model's file.
struct NamedPose {
    std::string name;
    Pose pose;
    bool lying = false; ///< Its lowest point is put on the floor.
};

/// All frames of all animations, in the file's order.
std::vector<NamedPose> framesOf(const Figure &figure);

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
