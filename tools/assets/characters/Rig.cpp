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
    const std::array<glm::vec3, 2> wrist{atWeapon(plan.rightWrist), atWeapon(plan.leftWrist)};
    for (const Side side : {Right, Left}) {
        const glm::vec3 shoulder = mirrored(plan.shoulder, side);
        const glm::vec3 hip = mirrored(plan.hip, side);
        const glm::vec3 elbow =
            middleJoint(shoulder, wrist[side], plan.upperArm, plan.foreArm, plan.elbowPole[side]);
        const glm::vec3 knee = middleJoint(hip, plan.ankle[side], plan.thigh, plan.shin, plan.kneePole[side]);
        arm[side] = addLimb(skeleton, chest, {shoulder, elbow, wrist[side]});
        leg[side] = addLimb(skeleton, pelvis, {hip, knee, plan.ankle[side]});
    }
}
