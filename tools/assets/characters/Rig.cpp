#include "tools/assets/characters/Rig.h"

#include <glm/gtc/matrix_transform.hpp>

namespace {

Limb addLimb(Skeleton &skeleton, Bone parent, const std::array<glm::vec3, 3> &joints) {
    Limb limb;
    limb.upper = skeleton.add(joints[0], parent);
    limb.lower = skeleton.add(joints[1], limb.upper);
    limb.end = skeleton.add(joints[2], limb.lower);
    return limb;
}

} // namespace

Rig::Rig(const RigPlan &plan)
    : weapon(glm::scale(glm::translate(glm::mat4(1.0f), plan.grip) * turned(plan.aim),
                        glm::vec3(plan.weaponSize))) {
    pelvis = skeleton.addRoot(plan.pelvis);
    waist = skeleton.add(plan.waist, pelvis);
    chest = skeleton.add(plan.chest, waist);
    neck = skeleton.add(plan.neck, chest);
    head = skeleton.add(plan.head, neck);
    for (const Side side : {Right, Left}) {
        const glm::vec3 shoulder = mirrored(plan.shoulder, side);
        const glm::vec3 hip = mirrored(plan.hip, side);
        glm::vec3 wrist = atWeapon(side == Right ? plan.rightWrist : plan.leftWrist);
        const glm::vec3 heel = atWeapon(handHeel[side]);
        const glm::vec3 planned = heel - wrist;
        // The hand leads on where the forearm points, as far as what it holds allows: no wrist breaks.
        for (int i = 0; i < 4; ++i) {
            const glm::vec3 bent =
                middleJoint(shoulder, wrist, plan.upperArm, plan.foreArm, plan.elbowPole[side]);
            const glm::vec3 way = 0.4f * glm::normalize(planned) + 0.6f * glm::normalize(heel - bent);
            wrist = heel - glm::normalize(way) * glm::length(planned);
        }
        const glm::vec3 elbow =
            middleJoint(shoulder, wrist, plan.upperArm, plan.foreArm, plan.elbowPole[side]);
        const glm::vec3 knee = middleJoint(hip, plan.ankle[side], plan.thigh, plan.shin, plan.kneePole[side]);
        arm[side] = addLimb(skeleton, chest, {shoulder, elbow, wrist});
        leg[side] = addLimb(skeleton, pelvis, {hip, knee, plan.ankle[side]});
    }
}
