#include "tools/assets/characters/Body.h"
#include "tools/assets/characters/Materials.h"

#include <cmath>

namespace {

const glm::vec3 fatigues(0.55f, 0.57f, 0.56f);
const glm::vec3 webbing(0.30f, 0.32f, 0.35f);
const glm::vec3 armour(0.55f, 0.56f, 0.58f);

/// Blotches of three tones.
void camouflage(const SurfacePoint &at, Coat &coat) {
    const float dark = layeredNoise(at.position * 0.23f, 3);
    const float pale = layeredNoise(at.position * 0.23f + 31.0f, 3);
    coat.colour *= 1.0f - 0.38f * glm::smoothstep(0.10f, 0.16f, dark);
    coat.colour *= 1.0f + 0.35f * glm::smoothstep(0.14f, 0.20f, pale);
}

void addTorso(Figure &marine) {
    const Rig &rig = marine.rig;
    Part &body = marine.add(Material::Cloth, fatigues, softProfile(10, 2.4f));
    columnRings(body, {{24.8f, 0, {2.2f, 1.8f}, on(rig.pelvis)},
                       {26.2f, 0, {5.2f, 4.0f}, on(rig.pelvis)},
                       {29.5f, 0, {6.1f, 4.6f}, on(rig.pelvis)},
                       {32.5f, 0, {5.5f, 4.2f}, between(rig.pelvis, rig.waist, 0.5f)},
                       {36.0f, 0, {5.6f, 4.2f}, between(rig.waist, rig.chest, 0.4f)}});
    body.decorate = camouflage;

    Part &vest = marine.add(Material::Plate, armour, softProfile(10, 2.8f));
    vest.team = 1.0f;
    vest.sharp = true;
    columnRings(vest, {{34.3f, 0.1f, {5.6f, 4.2f}, between(rig.waist, rig.chest, 0.5f)},
                       {34.9f, 0.1f, {6.5f, 5.0f}, between(rig.waist, rig.chest, 0.6f)},
                       {38.0f, 0.3f, {6.9f, 5.3f}, on(rig.chest)},
                       {40.8f, 0.5f, {7.5f, 5.8f}, on(rig.chest)},
                       {43.6f, 0.3f, {7.4f, 5.6f}, on(rig.chest)},
                       {45.6f, 0.1f, {6.2f, 4.4f}, on(rig.chest)},
                       {46.5f, 0.1f, {4.2f, 3.2f}, on(rig.chest)}});
    // Two breast plates that stand out above the belly, and a hollow down the back.
    vest.sculpt = [](std::size_t, unsigned, glm::vec3 &point, Influence &) {
        const float breast = band(point.z - 41.6f, 1.6f, 2.6f) * band(std::abs(point.y) - 3.6f, 1.6f, 2.4f);
        point.x += point.x > 2.0f ? 0.9f * breast : 0.0f;
        point.x += point.x < -2.0f ? 0.7f * band(point.y, 0.5f, 2.0f) : 0.0f;
    };
    vest.decorate = [](const SurfacePoint &at, Coat &coat) {
        const glm::vec3 &p = at.position;
        const bool front = p.x > 0.5f;
        groove(coat, band(p.z - 38.4f, 0.08f, 0.14f));
        groove(coat, (front ? band(p.y, 0.08f, 0.14f) : 0.0f) * glm::smoothstep(38.2f, 38.8f, p.z));
        groove(coat, band(std::abs(p.y) - 5.6f, 0.08f, 0.14f));
        // A pale chevron across the chest.
        const float chevron = band(p.z - 43.2f + 0.55f * std::abs(p.y), 0.55f, 0.12f);
        paint(coat, glm::vec3(0.88f, 0.86f, 0.80f),
              (front ? 0.85f : 0.0f) * chevron * band(p.y, 4.6f, 0.1f) * (1.0f - coat.metal));
        paint(coat, webbing * 1.1f,
              band(std::abs(p.y) - 4.3f, 0.55f, 0.1f) * glm::smoothstep(42.0f, 42.4f, p.z));
    };
}

void addBelt(Figure &marine) {
    const Rig &rig = marine.rig;
    Part &belt = marine.add(Material::Leather, webbing, softProfile(8, 2.4f));
    columnRings(belt, {{30.2f, 0, {5.9f, 4.4f}, on(rig.pelvis)},
                       {30.4f, 0, {6.4f, 4.9f}, on(rig.pelvis)},
                       {32.0f, 0, {6.2f, 4.8f}, on(rig.pelvis)},
                       {32.2f, 0, {5.7f, 4.2f}, on(rig.pelvis)}});
    const std::array<glm::vec2, 4> places{{{4.6f, 2.6f}, {4.6f, -2.6f}, {0.6f, 6.4f}, {0.6f, -6.4f}}};
    for (const glm::vec2 &place : places) {
        Part &pouch =
            marine.add(Material::Leather, webbing * 1.25f, boxProfile(0.3f), {place.x, place.y * 0.6f, 0});
        barRings(pouch, {place.x, place.y, 28.6f}, {place.x, place.y, 32.2f}, {1.5f, 1.0f}, 0,
                 on(rig.pelvis));
        pouch.decorate = [](const SurfacePoint &at, Coat &coat) {
            groove(coat, band(at.position.z - 31.0f, 0.07f, 0.15f));
        };
    }
}

void addPack(Figure &marine) {
    const Rig &rig = marine.rig;
    Part &pack = marine.add(Material::Cloth, webbing * 1.35f, softProfile(8, 4.0f));
    columnRings(pack, {{34.2f, -6.6f, {0, 0}, on(rig.chest)},
                       {34.3f, -6.6f, {4.2f, 2.0f}, on(rig.chest)},
                       {35.5f, -6.9f, {5.2f, 2.9f}, on(rig.chest)},
                       {44.0f, -6.7f, {5.2f, 2.9f}, on(rig.chest)},
                       {46.6f, -6.3f, {4.4f, 2.3f}, on(rig.chest)},
                       {47.4f, -6.2f, {0, 0}, on(rig.chest)}});
    pack.decorate = [](const SurfacePoint &at, Coat &coat) {
        groove(coat, band(at.position.z - 42.6f, 0.08f, 0.2f), 0.2f);
        paint(coat, webbing * 0.7f, band(std::abs(at.position.y) - 2.6f, 0.45f, 0.08f));
    };
    Part &roll = marine.add(Material::Cloth, fatigues * 1.1f, roundProfile(7));
    barRings(roll, {-6.4f, -6.4f, 48.6f}, {-6.4f, 6.4f, 48.6f}, {1.8f, 1.8f}, 0, on(rig.chest));
    roll.decorate = [](const SurfacePoint &at, Coat &coat) {
        camouflage(at, coat);
        paint(coat, webbing * 0.7f, band(std::abs(at.position.y) - 3.2f, 0.4f, 0.08f));
    };
    Part &antenna = marine.add(Material::Metal, glm::vec3(0.2f), roundProfile(4));
    antenna.ring({-8, -4.4f, 44}, {0.3f, 0.3f}, on(rig.chest))
        .ring({-8.2f, -4.6f, 52}, {0.16f, 0.16f}, on(rig.chest));
    antenna.ring({-8.7f, -4.9f, 60}, {0.1f, 0.1f}, on(rig.chest)).tip({-8.7f, -4.9f, 60.3f}, on(rig.chest));
}

void paintHelmet(const SurfacePoint &at, Coat &coat) {
    const glm::vec3 &p = at.position;
    const float visor = (p.x > 0.8f ? 1.0f : 0.0f) * band(p.z - 51.3f, 1.25f, 0.1f) * band(p.y, 3.5f, 0.2f);
    const float rim = (p.x > 0.6f ? 1.0f : 0.0f) * band(p.z - 51.3f, 1.65f, 0.1f) * band(p.y, 3.9f, 0.2f);
    groove(coat, rim * (1.0f - visor), 0.15f);
    const glm::vec3 glass = glm::mix(glm::vec3(0.85f, 0.42f, 0.08f), glm::vec3(1.0f, 0.80f, 0.35f),
                                     glm::smoothstep(50.2f, 52.4f, p.z));
    paint(coat, glass, visor);
    coat.glow = 0.45f * visor;
    coat.gloss = glm::mix(coat.gloss, 1.0f, visor);
    coat.height *= 1.0f - visor;
    const float jaw = glm::smoothstep(49.9f, 49.6f, p.z);
    paint(coat, glm::vec3(0.17f), jaw * (1.0f - rim));
    const float slot = p.y / 0.8f;
    groove(coat, jaw * (p.x > 2 ? 1.0f : 0.0f) * band(slot - std::round(slot), 0.2f, 0.1f) *
                     band(p.z - 48.6f, 0.6f, 0.1f));
    paint(coat, glm::vec3(0.88f, 0.86f, 0.80f),
          0.85f * band(p.y, 0.55f, 0.08f) * glm::smoothstep(53.6f, 53.8f, p.z));
    groove(coat, band(p.z - 53.3f, 0.06f, 0.12f) * (1.0f - visor));
}

void addHead(Figure &marine) {
    const Rig &rig = marine.rig;
    Part &neck = marine.add(Material::Cloth, glm::vec3(0.14f), roundProfile(8));
    columnRings(neck, {{45.5f, 0, {2.6f, 2.6f}, on(rig.chest)}, {48.5f, 0.4f, {2.3f, 2.4f}, on(rig.head)}});
    Part &collar = marine.add(Material::Plate, armour, softProfile(10, 2.2f));
    collar.team = 1.0f;
    collar.sharp = true;
    columnRings(collar, {{44.6f, -0.2f, {5.2f, 4.2f}, on(rig.chest)},
                         {46.4f, -0.2f, {5.0f, 4.3f}, on(rig.chest)},
                         {48.4f, -0.1f, {4.1f, 3.9f}, on(rig.chest)},
                         {48.5f, 0, {3.4f, 3.2f}, on(rig.chest)},
                         {47.0f, 0, {2.8f, 2.6f}, on(rig.chest)}});
    collar.rings.back().along = {0, 0, -1};
    Part &helmet = marine.add(Material::Plate, armour, softProfile(10, 2.3f));
    helmet.team = 1.0f;
    helmet.detail = 1.5f;
    const Influence head = on(rig.head);
    columnRings(helmet, {{47.2f, 0.9f, {0, 0}, head},
                         {47.3f, 0.9f, {2.0f, 2.6f}, head},
                         {48.2f, 0.8f, {3.1f, 3.7f}, head},
                         {50.2f, 0.5f, {3.85f, 4.3f}, head},
                         {53.0f, 0.1f, {4.1f, 4.7f}, head},
                         {54.6f, -0.1f, {3.6f, 4.2f}, head},
                         {55.8f, -0.2f, {2.2f, 2.7f}, head},
                         {56.2f, -0.2f, {0, 0}, head}});
    // The visor lies back below the brow; a jaw guard stands out below it.
    helmet.sculpt = [](std::size_t, unsigned, glm::vec3 &point, Influence &) {
        if (point.x < 1.5f)
            return;
        const float middle = band(point.y, 2.2f, 1.8f);
        point.x +=
            middle * (0.55f * band(point.z - 48.2f, 0.6f, 1.0f) + 0.5f * band(point.z - 53.0f, 0.3f, 1.2f));
    };
    helmet.decorate = paintHelmet;
    for (const Side side : {Right, Left}) {
        Part &ear = marine.add(Material::Metal, glm::vec3(0.25f), roundProfile(8), {0, 0, 1});
        ear.sharp = true;
        const float y = side == Left ? 1.0f : -1.0f;
        barRings(ear, {0, 3.4f * y, 51}, {0, 4.9f * y, 51}, {1.3f, 1.5f}, 0, head);
    }
}

void addLimbs(Figure &marine) {
    const Rig &rig = marine.rig;
    for (const Side side : {Right, Left}) {
        const float y = side == Left ? 1.0f : -1.0f;
        Part &sleeve = marine.add(Material::Cloth, fatigues, roundProfile(7));
        limbRings(sleeve, marine, rig.arm[side], rig.chest, armShape(1.0f));
        sleeve.decorate = [](const SurfacePoint &at, Coat &coat) {
            camouflage(at, coat);
            paintTeam(coat, band(at.along - 0.36f, 0.075f, 0.01f));
        };
        Part &shoulder = marine.add(Material::Plate, armour, softProfile(8, 2.6f), {1, 0, 0});
        shoulder.team = 1.0f;
        shoulder.sharp = true;
        domeRings(shoulder, rig.at(rig.arm[side].upper) + glm::vec3(0, 0.2f * y, -1.4f),
                  {0.1f, 0.75f * y, 0.8f}, {3.5f, 3.4f}, 3.9f, between(rig.chest, rig.arm[side].upper, 0.5f));
        shoulder.decorate = [](const SurfacePoint &at, Coat &coat) {
            groove(coat, band(at.along - 0.42f, 0.012f, 0.02f));
        };
        Part &guard = marine.add(Material::Plate, armour, softProfile(7, 2.6f));
        guard.sharp = true;
        limbRings(guard, marine, rig.arm[side], rig.chest,
                  {{1.16f, {1.5f, 1.5f}},
                   {1.2f, {2.25f, 2.25f}},
                   {1.5f, {2.15f, 2.15f}},
                   {1.9f, {1.6f, 1.6f}},
                   {1.94f, {1.2f, 1.2f}}});
        guard.team = 1.0f;
        guard.decorate = [](const SurfacePoint &at, Coat &coat) {
            groove(coat, band(at.along - 0.5f, 0.012f, 0.02f));
        };
        addFist(marine, side, Material::Leather, glm::vec3(0.30f, 0.31f, 0.33f), 1.0f);

        Part &trousers = marine.add(Material::Cloth, fatigues, roundProfile(8));
        limbRings(trousers, marine, rig.leg[side], rig.pelvis, legShape(1.0f));
        trousers.decorate = camouflage;
        // A plate on the thigh and one over the knee, which a strap holds.
        Part &thigh = marine.add(Material::Plate, armour, softProfile(8, 2.6f));
        thigh.team = 1.0f;
        thigh.sharp = true;
        limbRings(thigh, marine, rig.leg[side], rig.pelvis,
                  {{0.22f, {2.6f, 3.0f}, {0.5f, 0.4f * y, 0}},
                   {0.25f, {3.3f, 3.9f}, {0.6f, 0.5f * y, 0}},
                   {0.5f, {3.0f, 3.6f}, {0.5f, 0.4f * y, 0}},
                   {0.72f, {2.5f, 2.9f}, {0.5f, 0.2f * y, 0}},
                   {0.74f, {2.0f, 2.2f}, {0.4f, 0.1f * y, 0}}});
        thigh.decorate = [](const SurfacePoint &at, Coat &coat) {
            // Open behind: there the cloth shows.
            const float back = band(at.around, 0.17f, 0.01f) + band(at.around - 1.0f, 0.17f, 0.01f);
            paint(coat, fatigues * 0.9f, back * (1.0f - coat.metal));
            groove(coat, band(at.along - 0.72f, 0.012f, 0.02f));
        };
        Part &strap = marine.add(Material::Leather, webbing, roundProfile(8));
        limbRings(
            strap, marine, rig.leg[side], rig.pelvis,
            {{0.93f, {2.2f, 2.5f}}, {0.96f, {2.6f, 2.9f}}, {1.04f, {2.6f, 2.9f}}, {1.07f, {2.1f, 2.3f}}});
        Part &knee = marine.add(Material::Plate, armour, softProfile(8, 2.4f), {0, 0, 1});
        knee.team = 1.0f;
        knee.sharp = true;
        const glm::vec3 kneeWay = glm::normalize(glm::vec3(1, 0.3f * y, 0.1f));
        domeRings(knee, rig.at(rig.leg[side].lower) + kneeWay * 1.2f, kneeWay, {2.4f, 3.1f}, 2.3f,
                  between(rig.leg[side].upper, rig.leg[side].lower, 0.5f));
        // The shaft of the boot goes down into the foot.
        Part &shaft = marine.add(Material::Leather, webbing, roundProfile(8));
        limbRings(shaft, marine, rig.leg[side], rig.pelvis,
                  {{1.28f, {2.2f, 2.5f}, {-0.2f, 0, 0}},
                   {1.3f, {2.8f, 3.1f}, {-0.3f, 0, 0}},
                   {1.38f, {2.75f, 3.05f}, {-0.35f, 0, 0}},
                   {1.6f, {2.55f, 2.9f}, {-0.3f, 0, 0}},
                   {1.9f, {2.1f, 2.5f}},
                   {2.08f, {2.1f, 2.7f}, {0.2f, 0, 0}}});
        shaft.decorate = [](const SurfacePoint &at, Coat &coat) {
            groove(coat, band(at.along - 0.2f, 0.012f, 0.02f));
            const float lace = at.along * 16.0f;
            groove(coat, band(at.around - 0.5f, 0.05f, 0.01f) * band(lace - std::round(lace), 0.14f, 0.12f));
        };
        addFoot(marine, side, Material::Leather, webbing * 0.9f, {9.6f, 2.25f, 3.6f, 3.0f, 12});
    }
}

/// Looks about, then lifts the weapon, taps its magazine home and takes it down again.
void idle(const Rig &rig, Stance &stance, float phase) {
    const float breath = wave(phase, 5);
    const float weight =
        keyed(phase, {{0, -1}, {0.16f, 1}, {0.40f, 0.9f}, {0.52f, -0.2f}, {0.72f, -0.4f}, {0.9f, -1}});
    const float look = keyed(
        phase, {{0, 34}, {0.1f, 40}, {0.22f, -14}, {0.34f, -10}, {0.46f, 12}, {0.74f, 12}, {0.86f, 36}});
    const float check = keyed(phase, {{0.38f, 0}, {0.52f, 1}, {0.68f, 1}, {0.80f, 0}});
    const float tap = keyed(phase, {{0.55f, 0}, {0.575f, 1}, {0.6f, 0}, {0.625f, 1}, {0.66f, 0}});
    stance.shift = {0.3f * check, 2.6f * weight, -0.5f + 0.25f * breath - 0.4f * std::abs(weight)};
    stance.pelvis = {3.0f * weight, 0, 3.0f * weight};
    stance.waist = {-4.0f * weight, -1.0f * breath, 0.12f * look};
    stance.chest = {-2.0f * weight, -2.0f * breath - 3.0f * check, 0.18f * look};
    stance.neck.z = 0.25f * look;
    stance.head = {0.06f * look + 8.0f * check, 2.0f + 17.0f * check, 0.45f * look};
    stance.weaponShift = glm::vec3(-1.2f, 1.0f, 4.6f) * check + glm::vec3(0, 0, 0.3f * breath);
    stance.weaponTurn = glm::vec3(-26, -16, -8) * check + glm::vec3(0, 4.0f * weight, 3.0f * weight);
    const float away = keyed(phase, {{0.42f, 0}, {0.55f, 1}, {0.65f, 1}, {0.78f, 0}});
    const glm::vec3 below = rig.weaponWay({0, 0, -1});
    stance.left = {
        away, rig.atWeapon({4.6f, 1.6f, -4.6f}) + below * (1.6f - 1.8f * tap), {}, rig.arm[Right].end};
}

} // namespace

Figure makeMarine() {
    RigPlan plan;
    plan.grip = {7.2f, -6.3f, 35.6f};
    plan.aim = {-6, -10, 44};
    Figure marine(plan);
    marine.stand = [rig = marine.rig](Stance &stance, float phase) { idle(rig, stance, phase); };
    addTorso(marine);
    addBelt(marine);
    addPack(marine);
    addHead(marine);
    addLimbs(marine);
    return marine;
}
