#include "tools/assets/characters/Figure.h"

namespace {

/// Frames of every model: a loop of 40 and its first frame again.
constexpr unsigned loopFrames = 40;

/// A look to one side, a rest, and a look to the other: -1 … 1.
float lookAround(float phase) {
    const float turn = wave(phase, 1);
    return turn * turn * turn;
}

void standAsAll(const Figure &figure, Stance &stance, float phase) {
    const IdleMotion &idle = figure.idle;
    const float breath = wave(phase, idle.breaths);
    const float weight = wave(phase, 1, 0.1f);
    const float look = lookAround(phase);
    const float lift = idle.lift;
    stance.shift = {0.2f * idle.sway * wave(phase, 2), idle.sway * weight,
                    -idle.sink * (1.0f - breath) * 0.5f};
    stance.pelvis = {1.2f * idle.sway * weight, 0, 1.5f * weight};
    stance.waist = {-1.4f * idle.sway * weight, -0.4f * idle.breath * breath, 2.0f * look};
    stance.chest = {0, -idle.breath * breath, 3.0f * look};
    stance.neck = {0, 0.5f * idle.breath * breath, 0.35f * idle.look * look};
    stance.head = {2.0f * look, idle.lookDown * (0.5f - 0.5f * wave(phase, 2, 0.25f)),
                   0.65f * idle.look * look};
    stance.weaponTurn = {0.4f * lift * wave(phase, 2), lift * wave(phase, idle.breaths, 0.15f),
                         0.8f * lift * wave(phase, 1, 0.3f)};
    if (!idle.leftHandOnWeapon)
        stance.left = {1.0f, figure.rig.at(figure.rig.arm[Left].end), glm::vec3(0.0f), figure.rig.chest};
}

} // namespace

std::vector<NamedPose> framesOf(const Figure &figure) {
    std::vector<NamedPose> frames;
    for (unsigned frame = 0; frame <= loopFrames; ++frame) {
        const float phase = static_cast<float>(frame % loopFrames) / static_cast<float>(loopFrames);
        Stance stance;
        if (figure.stand)
            figure.stand(stance, phase);
        else
            standAsAll(figure, stance, phase);
        if (figure.manner)
            figure.manner(stance, {"stand", phase});
        const std::string number = std::to_string(frame + 1);
        frames.push_back({"stand" + std::string(number.size() < 2 ? "0" : "") + number,
                          poseOf(figure, stance, phase), stance.lying});
    }
    return frames;
}
