#include "tools/assets/characters/Figure.h"

#include <cmath>
#include <glm/gtc/constants.hpp>
#include <glm/gtc/matrix_transform.hpp>

Part &Figure::add(Material material, const glm::vec3 &colour, Profile profile, const glm::vec3 &front) {
    Part &part = parts.emplace_back();
    part.material = material;
    part.colour = colour;
    part.profile = std::move(profile);
    part.front = front;
    return part;
}

float wave(float phase, unsigned turns, float offset) {
    return std::sin(glm::two_pi<float>() * (phase * static_cast<float>(turns) + offset));
}

namespace {

/// A look to one side, a rest, and a look to the other: -1 … 1.
float lookAround(float phase) {
    const float turn = wave(phase, 1);
    return turn * turn * turn;
}

void moveBody(const Figure &figure, Pose &pose, float phase) {
    const Rig &rig = figure.rig;
    const IdleMotion &idle = figure.idle;
    const float breath = wave(phase, idle.breaths);
    const float weight = wave(phase, 1, 0.1f);
    const float look = lookAround(phase);
    pose.shift(rig.pelvis,
               {0.2f * idle.sway * wave(phase, 2), idle.sway * weight, -idle.sink * (1.0f - breath) * 0.5f});
    pose.turn(rig.pelvis, {1.2f * idle.sway * weight, 0, 1.5f * weight});
    pose.turn(rig.waist, {-1.4f * idle.sway * weight, -0.4f * idle.breath * breath, 2.0f * look});
    pose.turn(rig.chest, {0, -idle.breath * breath, 3.0f * look});
    pose.turn(rig.neck, {0, 0.5f * idle.breath * breath, 0.35f * idle.look * look});
    pose.turn(rig.head,
              {2.0f * look, idle.lookDown * (0.5f - 0.5f * wave(phase, 2, 0.25f)), 0.65f * idle.look * look});
}

/// About a point, carried along with the chest.
glm::mat4 handTarget(const Figure &figure, const Pose &pose, float phase) {
    const glm::vec3 pivot(figure.rig.weapon[3]);
    const float lift = figure.idle.lift;
    const glm::mat4 one(1.0f);
    return pose.of(figure.rig.chest) * glm::translate(one, pivot) *
           turned({0.4f * lift * wave(phase, 2), lift * wave(phase, figure.idle.breaths, 0.15f),
                   0.8f * lift * wave(phase, 1, 0.3f)}) *
           glm::translate(one, -pivot);
}

} // namespace

Pose idlePose(const Figure &figure, float phase) {
    const Rig &rig = figure.rig;
    Pose pose(rig.skeleton);
    moveBody(figure, pose, phase);
    if (figure.extra)
        figure.extra(pose, phase);
    pose.settle();
    const glm::mat4 hand = handTarget(figure, pose, phase);
    pose.reach(rig.arm[Right], hand);
    pose.reach(rig.arm[Left], figure.idle.leftHandOnWeapon ? hand : pose.of(rig.arm[Left].end));
    for (const Limb &leg : rig.leg)
        pose.reach(leg, glm::mat4(1.0f));
    return pose;
}

std::vector<Pose> idleFrames(const Figure &figure) {
    std::vector<Pose> poses;
    for (unsigned frame = 0; frame <= loopFrames; ++frame)
        poses.push_back(
            idlePose(figure, static_cast<float>(frame % loopFrames) / static_cast<float>(loopFrames)));
    return poses;
}
