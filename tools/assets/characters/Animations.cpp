#include "tools/assets/characters/Figure.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <glm/gtc/constants.hpp>

namespace {

/// What the animations need to know of a body: all lengths follow from its legs and arms.
struct Body {
    explicit Body(const Figure &whole)
        : figure(whole), rig(whole.rig), shoulder(rig.at(rig.arm[Left].upper)), head(rig.at(rig.head)),
          leg(rig.at(rig.leg[Left].upper).z - rig.at(rig.leg[Left].end).z),
          arm(glm::distance(shoulder, rig.at(rig.arm[Left].lower)) +
              glm::distance(rig.at(rig.arm[Left].lower), rig.at(rig.arm[Left].end))) {}

    /// A place for the left hand, from its shoulder, in lengths of the arm.
    glm::vec3 fromShoulder(const glm::vec3 &reach) const { return shoulder + reach * arm; }

    const Figure &figure;
    const Rig &rig;
    glm::vec3 shoulder;
    glm::vec3 head;
    float leg;
    float arm;
};

using Motion = void (*)(const Body &, Stance &, float);

/// A look to one side, a rest, and a look to the other: -1 … 1.
float lookAround(float phase) {
    const float turn = wave(phase, 1);
    return turn * turn * turn;
}

void stand(const Body &body, Stance &stance, float phase) {
    body.figure.stand(stance, phase);
}

/// One foot of a walk or run on the spot: back along the floor, forward through the air.
void step(const Body &body, Stance &stance, Side side, float phase, float stride, float lift) {
    const float turn = glm::two_pi<float>() * phase;
    const glm::vec3 ankle = body.rig.at(body.rig.leg[side].end);
    const glm::vec3 other = body.rig.at(body.rig.leg[side == Left ? Right : Left].end);
    const float air = std::max(0.0f, -std::sin(turn));
    Stance::Foot &foot = stance.foot[side];
    foot.shift.x = 0.5f * (other.x - ankle.x) + stride * std::cos(turn);
    foot.shift.y = -0.25f * ankle.y;
    foot.shift.z = lift * air;
    foot.turn.y = 45.0f * air - 10.0f * std::max(0.0f, std::cos(turn));
}

void gait(const Body &body, Stance &stance, float phase, float stride, float lift) {
    step(body, stance, Right, phase, stride, lift);
    step(body, stance, Left, phase + 0.5f, stride, lift);
    const float swing = wave(phase, 1, 0.25f); // The right foot ahead: 1.
    stance.pelvis.z += 8.0f * swing;
    stance.chest.z -= 12.0f * swing;
    stance.head.z += 4.0f * swing;
    stance.shift.z += 0.06f * body.leg * wave(phase, 2, 0.1f);
}

void run(const Body &body, Stance &stance, float phase) {
    stance.shift.z = -0.13f * body.leg;
    stance.pelvis.y = 8.0f;
    stance.waist.y = 6.0f;
    stance.head.y = -10.0f;
    gait(body, stance, phase, 0.42f * body.leg, 0.30f * body.leg);
    stance.weaponTurn = {0, 4.0f * wave(phase, 2), 10.0f * wave(phase, 1)};
}

/// A shot: `kick` 0 … 1.
void recoil(const Body &body, Stance &stance, float kick) {
    const glm::vec3 barrel = body.rig.weaponWay({1, 0, 0});
    stance.weaponShift -= barrel * (2.2f * kick);
    stance.weaponTurn.y -= 7.0f * kick;
    stance.chest.y -= 5.0f * kick;
    stance.chest.z -= 4.0f * kick;
    stance.neck.y += 3.0f * kick;
    stance.shift.x -= 0.9f * kick;
}

void takeAim(Stance &stance, float amount) {
    stance.weaponShift += glm::vec3(0.5f, 0, 2.5f) * amount;
    stance.chest.y += 4.0f * amount;
    stance.head += glm::vec3(8, 6, 0) * amount;
    stance.shift.z -= 1.2f * amount;
}

void attack(const Body &body, Stance &stance, float phase) {
    takeAim(stance, keyed(phase, {{0, 0.2f}, {0.2f, 1}, {0.8f, 1}}));
    recoil(body, stance, keyed(phase, {{0.12f, 0}, {0.25f, 1}, {0.5f, 0}, {0.62f, 1}, {0.95f, 0}}));
}

/// Hit from the front, the left and the right.
void flinch(const Body &body, Stance &stance, float amount, const glm::vec3 &away) {
    stance.shift += glm::vec3(-1.6f * away.y - 0.4f, 1.6f * away.x, -0.06f * body.leg) * amount;
    stance.waist += away * (9.0f * amount);
    stance.chest += away * (13.0f * amount);
    stance.neck += away * (10.0f * amount);
    stance.head += glm::vec3(away.x, std::abs(away.y), away.z) * (14.0f * amount);
    stance.weaponTurn += glm::vec3(0, 16, 6) * amount;
}

float hit(float phase) {
    return keyed(phase, {{0, 0}, {0.25f, 0.8f}, {0.5f, 1}, {0.99f, 0}});
}

void pain1(const Body &body, Stance &stance, float phase) {
    flinch(body, stance, hit(phase), {0.1f, -1, 0.2f});
}
void pain2(const Body &body, Stance &stance, float phase) {
    flinch(body, stance, hit(phase), {0.8f, 0.5f, -1});
}
void pain3(const Body &body, Stance &stance, float phase) {
    flinch(body, stance, hit(phase), {-0.8f, 0.7f, 1});
}

void jump(const Body &body, Stance &stance, float phase) {
    const float rise = keyed(phase, {{0, 0}, {0.16f, -0.26f}, {0.4f, 0.16f}, {0.66f, 0.2f}, {0.9f, -0.2f}});
    const float air = keyed(phase, {{0.16f, 0}, {0.45f, 1}, {0.7f, 1}, {0.86f, 0}});
    stance.shift.z = rise * body.leg;
    stance.pelvis.y = 10.0f * (1.0f - air);
    stance.chest.y = 8.0f * (1.0f - 2.0f * air);
    for (const Side side : {Right, Left}) {
        stance.foot[side].shift =
            glm::vec3(side == Right ? -0.16f : 0.1f, 0, side == Right ? 0.34f : 0.46f) * (body.leg * air);
        stance.foot[side].turn.y = 40.0f * air;
    }
    stance.weaponTurn.y = -12.0f * air;
}

/// A gesture: the left hand goes to `reach` from the shoulder and back.
float gesture(const Body &body, Stance &stance, float phase, const glm::vec3 &reach) {
    const float out = keyed(phase, {{0, 0}, {0.28f, 1}, {0.76f, 1}});
    stance.left = {out, body.fromShoulder(reach), {}, 0};
    stance.weaponTurn = glm::vec3(0, 14, -12) * out;
    return out;
}

/// Both a fist and a nod that tell the other to go away.
void flip(const Body &body, Stance &stance, float phase) {
    const float thrust = keyed(phase, {{0.3f, 0}, {0.42f, 1}, {0.55f, 0.2f}, {0.68f, 1}, {0.8f, 0}});
    const float out = gesture(body, stance, phase, {0.55f, 0.12f, 0.05f + 0.35f * thrust});
    stance.left.turn = glm::vec3(0, 0, -40) * out;
    stance.chest.z = -14.0f * out;
    stance.head = glm::vec3(-6, -8, 12) * out;
}

void salute(const Body &body, Stance &stance, float phase) {
    const float out = gesture(body, stance, phase, {});
    stance.left.wrist = body.head + glm::vec3(0.24f, 0.26f, 0.16f) * body.arm;
    stance.left.turn = glm::vec3(-50, 0, 0) * out;
    stance.chest = glm::vec3(0, -6, 6) * out;
    stance.head = glm::vec3(0, -4, 14) * out;
    stance.shift.z = 0.015f * body.leg * out;
}

/// Raises the weapon and shakes it.
void taunt(const Body &body, Stance &stance, float phase) {
    const float up = keyed(phase, {{0, 0}, {0.2f, 1}, {0.8f, 1}});
    const float shake = up * wave(phase, 4);
    stance.weaponShift = glm::vec3(-1.0f, 0, 4.5f + 1.2f * shake) * up;
    stance.weaponTurn = glm::vec3(0, -22, 0) * up;
    stance.chest = glm::vec3(3 * shake, -10 * up, 8 * up);
    stance.head = glm::vec3(5 * shake, -8 * up, 10 * up);
    stance.shift = glm::vec3(0.5f, 0.6f * shake, -0.05f * body.leg) * up;
}

void waveHand(const Body &body, Stance &stance, float phase) {
    const float swing = wave(phase, 3, 0.1f);
    const float out = gesture(body, stance, phase, {0.3f, 0.35f + 0.28f * swing, 0.72f});
    stance.chest = glm::vec3(-4 - 3 * swing, -2, 10) * out;
    stance.head = glm::vec3(-4, -6, 16) * out;
}

void point(const Body &body, Stance &stance, float phase) {
    const float out = gesture(body, stance, phase, {0.94f, 0.1f, -0.02f});
    stance.chest = glm::vec3(0, 5, -22) * out;
    stance.head = glm::vec3(0, 0, 20) * out;
    stance.shift.x = 1.2f * out;
}

void crouch(const Body &body, Stance &stance, float amount) {
    stance.shift += glm::vec3(-0.06f, 0, -0.36f) * (body.leg * amount);
    stance.pelvis.y += 14.0f * amount;
    stance.waist.y += 10.0f * amount;
    stance.neck.y -= 10.0f * amount;
    stance.head.y -= 10.0f * amount;
    // One foot ahead, the other on its toes.
    stance.foot[Left].shift.x += 0.10f * body.leg * amount;
    stance.foot[Right].shift += glm::vec3(-0.14f, 0, 0.06f) * (body.leg * amount);
    stance.foot[Right].turn.y += 28.0f * amount;
}

void crouchedStand(const Body &body, Stance &stance, float phase) {
    crouch(body, stance, 1.0f);
    stance.shift.z += 0.012f * body.leg * wave(phase, 3);
    stance.chest = {0, -1.5f * wave(phase, 3), 5.0f * wave(phase, 1)};
    stance.head.z = 16.0f * lookAround(phase) + 4.0f;
}

void crouchedWalk(const Body &body, Stance &stance, float phase) {
    crouch(body, stance, 1.0f);
    stance.foot = {};
    gait(body, stance, phase, 0.22f * body.leg, 0.14f * body.leg);
}

void crouchedAttack(const Body &body, Stance &stance, float phase) {
    crouch(body, stance, 1.0f);
    attack(body, stance, phase);
}

void crouchedPain(const Body &body, Stance &stance, float phase) {
    crouch(body, stance, 1.0f);
    flinch(body, stance, hit(phase), {0.5f, -0.8f, 0.6f});
}

/// What every fall has: the left hand lets go, the weapon sinks, the knees give way and stretch again.
void fall(const Body &body, Stance &stance, float phase, const glm::vec3 &turn) {
    const float down = keyed(phase, {{0, 0.06f}, {0.8f, 1}, {1, 1}});
    const float give = keyed(phase, {{0, 0}, {0.45f, 1}, {1, 0.25f}});
    stance.lying = true;
    stance.wholeTurn = turn * down;
    // The body comes to lie where it stood.
    stance.wholeShift = glm::vec3(-turn.y, turn.x, 0) * (down * 0.3f);
    stance.shift += glm::vec3(0, 0, -0.3f) * (body.leg * give);
    stance.left = {
        std::min(1.0f, 2.5f * phase), body.fromShoulder({0.35f, 0.75f, -0.2f + 0.3f * down}), {}, 0};
    stance.weaponTurn = glm::vec3(0, 10, 50) * down; // Across the chest.
    stance.foot[Right].shift += glm::vec3(0.0f, -0.08f, 0.22f) * (body.leg * down);
    stance.foot[Left].shift += glm::vec3(0.1f, 0.12f, 0.05f) * (body.leg * down);
    for (Stance::Foot &foot : stance.foot)
        foot.turn.y = 30.0f * down;
}

void death1(const Body &body, Stance &stance, float phase) {
    fall(body, stance, phase, {0, -88, 0});
    stance.chest.y = 14.0f - 20.0f * phase;
    stance.head = {10 * phase, 20 - 26 * phase, 24 * phase};
}
void death2(const Body &body, Stance &stance, float phase) {
    fall(body, stance, phase, {0, 84, 0});
    stance.waist.y = 14.0f * (1.0f - phase);
    stance.head = {0, -18 * phase, -40 * phase};
    // Flung ahead of the body, along the floor.
    stance.weaponShift = glm::vec3(-5, -2, 9) * phase;
    stance.weaponTurn = glm::vec3(0, -64, -20) * phase;
}
void death3(const Body &body, Stance &stance, float phase) {
    fall(body, stance, phase, {82, 0, 40});
    stance.chest = {8 * phase, 10 * phase, -26 * (1 - phase)};
    stance.head = {-16 * phase, 10 * phase, -20 * phase};
}
void crouchedDeath(const Body &body, Stance &stance, float phase) {
    crouch(body, stance, 1.0f - 0.6f * phase);
    fall(body, stance, phase, {-80, -16, 0});
    stance.head = {14 * phase, 14 * phase, 20 * phase};
}

struct Animation {
    const char *name;
    unsigned count;
    bool loops;
    Motion motion;
};

// Names, counts and order as programs that play such models expect them.
constexpr std::array<Animation, 20> animations{{{"stand", 40, true, stand},
                                                {"run", 6, true, run},
                                                {"attack", 8, false, attack},
                                                {"pain1", 4, false, pain1},
                                                {"pain2", 4, false, pain2},
                                                {"pain3", 4, false, pain3},
                                                {"jump", 6, false, jump},
                                                {"flip", 12, false, flip},
                                                {"salute", 11, false, salute},
                                                {"taunt", 17, false, taunt},
                                                {"wave", 11, false, waveHand},
                                                {"point", 12, false, point},
                                                {"crstnd", 19, true, crouchedStand},
                                                {"crwalk", 6, true, crouchedWalk},
                                                {"crattak", 9, false, crouchedAttack},
                                                {"crpain", 4, false, crouchedPain},
                                                {"crdeath", 5, false, crouchedDeath},
                                                {"death1", 6, false, death1},
                                                {"death2", 6, false, death2},
                                                {"death3", 8, false, death3}}};

/// "run1", "stand01", "death101": two digits where there are that many, or where the name has a number.
std::string frameName(const Animation &animation, unsigned frame) {
    const std::string name = animation.name;
    const std::string number = std::to_string(frame + 1);
    const bool wide = animation.count > 9 || std::isdigit(name.back()) != 0;
    return name + (wide && number.size() < 2 ? "0" : "") + number;
}

} // namespace

std::vector<NamedPose> framesOf(const Figure &figure) {
    const Body body(figure);
    std::vector<NamedPose> frames;
    for (const Animation &animation : animations) {
        for (unsigned frame = 0; frame < animation.count; ++frame) {
            const float phase =
                static_cast<float>(frame + (animation.loops ? 0 : 1)) / static_cast<float>(animation.count);
            Stance stance;
            animation.motion(body, stance, phase);
            if (figure.manner)
                figure.manner(stance, {animation.name, phase});
            frames.push_back({frameName(animation, frame), poseOf(figure, stance, phase), stance.lying});
        }
    }
    return frames;
}
