#include "tools/assets/characters/Arm.h"

void armRings(Part &part, const Figure &figure, Side side, const glm::vec3 &root, const glm::vec2 &shoulder,
              const std::vector<LimbRing> &rings) {
    const Rig &rig = figure.rig;
    const Limb &arm = rig.arm[side];
    const glm::vec3 joint = rig.at(arm.upper);
    const glm::vec3 outward = glm::normalize(joint - root);
    const glm::vec3 down = glm::normalize(rig.at(arm.lower) - joint);
    part.ring(root, shoulder * 0.8f, on(rig.chest), outward);
    part.ring(glm::mix(root, joint, 0.72f), shoulder * 0.97f, between(rig.chest, arm.upper, 0.15f),
              outward + 0.35f * down);
    part.ring(joint - (outward - down) * (shoulder.x * 0.08f), shoulder, between(rig.chest, arm.upper, 0.5f),
              outward + down);
    limbRings(part, figure, arm, rig.chest, rings);
}
