#include "tools/assets/characters/Stance.h"

#include "tools/assets/characters/Figure.h"

#include <cmath>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/quaternion.hpp>

float keyed(float phase, std::initializer_list<glm::vec2> keys) {
    const auto *after = keys.begin();
    while (after != keys.end() && after->x <= phase)
        ++after;
    const bool wraps = after == keys.end();
    const bool before = after == keys.begin();
    const glm::vec2 from = before ? *(keys.end() - 1) - glm::vec2(1, 0) : *(after - 1);
    const glm::vec2 to = wraps ? *keys.begin() + glm::vec2(1, 0) : *after;
    return glm::mix(from.y, to.y, glm::smoothstep(from.x, to.x, phase));
}

namespace {

/// Moves about `pivot`, which itself goes to pivot + shift.
glm::mat4 about(const glm::vec3 &pivot, const glm::vec3 &shift, const glm::vec3 &turn) {
    const glm::mat4 one(1.0f);
    return glm::translate(one, pivot + shift) * turned(turn) * glm::translate(one, -pivot);
}

/// A rigid movement between two others, by what they do with `point`.
glm::mat4 blended(const glm::mat4 &from, const glm::mat4 &to, float amount, const glm::vec3 &point) {
    const glm::quat turn = glm::slerp(glm::quat_cast(from), glm::quat_cast(to), amount);
    const glm::vec3 place(glm::mix(from * glm::vec4(point, 1.0f), to * glm::vec4(point, 1.0f), amount));
    const glm::mat4 one(1.0f);
    return glm::translate(one, place) * glm::mat4_cast(turn) * glm::translate(one, -point);
}

glm::mat4 leftHand(const Figure &figure, const Pose &pose, const Stance &stance, const glm::mat4 &onWeapon) {
    const glm::vec3 wrist = figure.rig.at(figure.rig.arm[Left].end);
    const glm::mat4 away =
        pose.of(stance.left.with) * about(wrist, stance.left.wrist - wrist, stance.left.turn);
    return blended(onWeapon, away, stance.left.amount, wrist);
}

} // namespace

Pose poseOf(const Figure &figure, const Stance &stance, float phase) {
    const Rig &rig = figure.rig;
    Pose pose(rig.skeleton);
    pose.shift(rig.pelvis, stance.shift);
    pose.turn(rig.pelvis, stance.pelvis);
    pose.turn(rig.waist, stance.waist);
    pose.turn(rig.chest, stance.chest);
    pose.turn(rig.neck, stance.neck);
    pose.turn(rig.head, stance.head);
    if (figure.extra)
        figure.extra(pose, phase);
    pose.settle();
    const glm::mat4 hand =
        pose.of(rig.chest) * about(glm::vec3(rig.weapon[3]), stance.weaponShift, stance.weaponTurn);
    pose.reach(rig.arm[Right], hand);
    pose.reach(rig.arm[Left], stance.left.amount > 0.0f ? leftHand(figure, pose, stance, hand) : hand);
    for (const Side side : {Right, Left}) {
        const Limb &leg = rig.leg[side];
        pose.reach(leg, about(rig.at(leg.end), stance.foot[side].shift, stance.foot[side].turn));
    }
    const glm::vec3 middle = 0.5f * (rig.at(rig.leg[Right].end) + rig.at(rig.leg[Left].end));
    pose.moveAll(about({middle.x, middle.y, 0}, stance.wholeShift, stance.wholeTurn));
    return pose;
}
