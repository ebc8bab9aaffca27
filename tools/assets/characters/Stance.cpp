#include "tools/assets/characters/Stance.h"

#include "tools/assets/characters/Figure.h"

#include <cmath>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/quaternion.hpp>
#define GLM_ENABLE_EXPERIMENTAL
#include <glm/gtx/quaternion.hpp>

float keyed(float phase, std::initializer_list<glm::vec2> keys) {
    const auto *after = keys.begin();
    while (after != keys.end() && after->x <= phase)
        ++after;
    const bool wraps = after == keys.end();
    const bool before = after == keys.begin();
    const glm::vec2 from = before ? *(keys.end() - 1) - glm::vec2(1, 0) : *(after - 1);
    const glm::vec2 to = wraps ? *keys.begin() + glm::vec2(1, 0) : *after;
    return to.x <= from.x ? from.y : glm::mix(from.y, to.y, glm::smoothstep(from.x, to.x, phase));
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

/// The joint between the limb's two bones when they end at `end`; an end out of reach comes nearer.
glm::vec3 middleFor(const Rig &rig, const Pose &pose, const Limb &limb, glm::vec3 &end) {
    const glm::vec3 start = rig.at(limb.upper);
    const glm::vec3 middle = rig.at(limb.lower);
    const float upper = glm::distance(start, middle);
    const float lower = glm::distance(middle, rig.at(limb.end));
    const Bone above = rig.skeleton.parent(limb.upper);
    const glm::vec3 now = pose.carry(above, start);
    const float most = 0.997f * (upper + lower);
    if (glm::distance(now, end) > most)
        end = now + glm::normalize(end - now) * most;
    const glm::vec3 bend = middle - (start + rig.at(limb.end)) * 0.5f;
    return middleJoint(now, end, upper, lower, glm::vec3(pose.of(above) * glm::vec4(bend, 0.0f)));
}

glm::mat4 leftHand(const Figure &figure, const Pose &pose, const Stance &stance, const glm::mat4 &onWeapon) {
    const Rig &rig = figure.rig;
    const Limb &arm = rig.arm[Left];
    const glm::vec3 wrist = rig.at(arm.end);
    glm::vec3 place = pose.carry(stance.left.with == 0 ? rig.chest : stance.left.with, stance.left.wrist);
    const glm::vec3 elbow = middleFor(rig, pose, arm, place);
    const glm::quat inLine =
        glm::rotation(glm::normalize(wrist - rig.at(arm.lower)), glm::normalize(place - elbow));
    const glm::mat4 one(1.0f);
    const glm::mat4 away = glm::translate(one, place) * glm::mat4_cast(inLine) * turned(stance.left.turn) *
                           glm::translate(one, -wrist);
    return blended(onWeapon, away, stance.left.amount, wrist);
}

/// Where a foot goes, as far as its leg reaches.
glm::mat4 footTarget(const Rig &rig, const Pose &pose, const Limb &leg, const Stance::Foot &foot) {
    const glm::vec3 ankle = rig.at(leg.end);
    glm::vec3 place = ankle + foot.shift;
    middleFor(rig, pose, leg, place);
    return about(ankle, place - ankle, foot.turn);
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
        pose.reach(leg, footTarget(rig, pose, leg, stance.foot[side]));
    }
    const glm::vec3 middle = 0.5f * (rig.at(rig.leg[Right].end) + rig.at(rig.leg[Left].end));
    pose.moveAll(about({middle.x, middle.y, 0}, stance.wholeShift, stance.wholeTurn));
    return pose;
}
