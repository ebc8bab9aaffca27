#include "tools/assets/characters/Skeleton.h"

#include <algorithm>
#include <cmath>
#include <glm/gtc/matrix_transform.hpp>

Bone Skeleton::addRoot(const glm::vec3 &joint) {
    return add(joint, static_cast<Bone>(joints.size()));
}

Bone Skeleton::add(const glm::vec3 &joint, Bone parent) {
    joints.push_back(joint);
    parents.push_back(parent);
    return static_cast<Bone>(joints.size() - 1);
}

glm::mat4 turned(const glm::vec3 &degrees) {
    const glm::mat4 one(1.0f);
    return glm::rotate(one, glm::radians(degrees.z), glm::vec3(0, 0, 1)) *
           glm::rotate(one, glm::radians(degrees.y), glm::vec3(0, 1, 0)) *
           glm::rotate(one, glm::radians(degrees.x), glm::vec3(1, 0, 0));
}

glm::vec3 middleJoint(const glm::vec3 &start, const glm::vec3 &end, float upper, float lower,
                      const glm::vec3 &pole) {
    const glm::vec3 span = end - start;
    const float length = glm::length(span);
    const glm::vec3 along = span / length;
    const float reach = std::min(length, 0.9995f * (upper + lower));
    const float foot = (upper * upper - lower * lower + reach * reach) / (2.0f * reach);
    const float height = std::sqrt(std::max(upper * upper - foot * foot, 0.0f));
    const glm::vec3 bend = glm::normalize(pole - along * glm::dot(pole, along));
    return start + along * (foot * length / reach) + bend * height;
}

Pose::Pose(const Skeleton &figure)
    : skeleton(&figure), turns(figure.size(), glm::mat4(1.0f)), shifts(figure.size(), glm::vec3(0.0f)),
      transforms(figure.size(), glm::mat4(1.0f)) {}

void Pose::turn(Bone bone, const glm::vec3 &degrees) {
    turns[bone] = turned(degrees) * turns[bone];
}

void Pose::shift(Bone bone, const glm::vec3 &offset) {
    shifts[bone] += offset;
}

void Pose::settle() {
    const glm::mat4 one(1.0f);
    for (Bone bone = 0; bone < skeleton->size(); ++bone) {
        const glm::vec3 joint = skeleton->joint(bone);
        const Bone parent = skeleton->parent(bone);
        transforms[bone] = (parent == bone ? one : transforms[parent]) *
                           glm::translate(one, joint + shifts[bone]) * turns[bone] *
                           glm::translate(one, -joint);
    }
}

glm::vec3 Pose::carry(Bone bone, const glm::vec3 &restPoint) const {
    return glm::vec3(transforms[bone] * glm::vec4(restPoint, 1.0f));
}

namespace {

/// Axes of a bone that bends within the plane with this normal.
glm::mat3 boneAxes(const glm::vec3 &along, const glm::vec3 &planeNormal) {
    const glm::vec3 first = glm::normalize(along);
    const glm::vec3 third = glm::normalize(planeNormal - first * glm::dot(planeNormal, first));
    return {first, glm::cross(third, first), third};
}

glm::mat4 moved(const glm::mat3 &rest, const glm::mat3 &now, const glm::vec3 &restJoint,
                const glm::vec3 &joint) {
    const glm::mat4 one(1.0f);
    return glm::translate(one, joint) * glm::mat4(now * glm::transpose(rest)) *
           glm::translate(one, -restJoint);
}

} // namespace

void Pose::moveAll(const glm::mat4 &movement) {
    for (glm::mat4 &transform : transforms)
        transform = movement * transform;
}

void Pose::reach(const Limb &limb, const glm::mat4 &target) {
    const glm::vec3 start = skeleton->joint(limb.upper);
    const glm::vec3 middle = skeleton->joint(limb.lower);
    const glm::vec3 end = skeleton->joint(limb.end);
    const glm::mat4 &above = transforms[skeleton->parent(limb.upper)];

    const glm::vec3 newStart(above * glm::vec4(start, 1.0f));
    const glm::vec3 newEnd(target * glm::vec4(end, 1.0f));
    const glm::vec3 pole(above * glm::vec4(middle - (start + end) * 0.5f, 0.0f));
    const glm::vec3 newMiddle =
        middleJoint(newStart, newEnd, glm::distance(start, middle), glm::distance(middle, end), pole);

    const glm::vec3 plane = glm::cross(middle - start, end - middle);
    const glm::vec3 newPlane = glm::cross(newMiddle - newStart, newEnd - newMiddle);
    transforms[limb.upper] =
        moved(boneAxes(middle - start, plane), boneAxes(newMiddle - newStart, newPlane), start, newStart);
    transforms[limb.lower] =
        moved(boneAxes(end - middle, plane), boneAxes(newEnd - newMiddle, newPlane), middle, newMiddle);
    transforms[limb.end] = target;
}
