#pragma once

#include <glm/glm.hpp>
#include <vector>

/// Number of a bone in its skeleton.
using Bone = unsigned;

/// Joints of a figure at rest. Everything of a figure is modelled as it is seen: x to the front,
/// y to the figure's left, z up, the floor at z = 0, in the model's units.
class Skeleton {
public:
    Bone addRoot(const glm::vec3 &joint);
    /// The parent must have been added before.
    Bone add(const glm::vec3 &joint, Bone parent);

    std::size_t size() const { return joints.size(); }
    const glm::vec3 &joint(Bone bone) const { return joints[bone]; }
    Bone parent(Bone bone) const { return parents[bone]; } ///< A root is its own parent.

private:
    std::vector<glm::vec3> joints;
    std::vector<Bone> parents;
};

/// Two bones that follow their end: an arm follows its hand, a leg its foot.
struct Limb {
    Bone upper = 0;
    Bone lower = 0;
    Bone end = 0;
};

/// Where the bones are in one frame, each as the transform from rest.
class Pose {
public:
    explicit Pose(const Skeleton &skeleton);

    /// Turns a bone about its joint, in degrees about x, y and z of the rest pose; then settle().
    void turn(Bone bone, const glm::vec3 &degrees);
    void shift(Bone bone, const glm::vec3 &offset);
    /// Carries all turns and shifts down from the roots.
    void settle();
    /// After settle(): moves the end of the limb to `target` and bends the two bones above it.
    void reach(const Limb &limb, const glm::mat4 &target);
    /// After that: moves the whole body.
    void moveAll(const glm::mat4 &movement);

    const glm::mat4 &of(Bone bone) const { return transforms[bone]; }
    glm::vec3 carry(Bone bone, const glm::vec3 &restPoint) const;

private:
    const Skeleton *skeleton;
    std::vector<glm::mat4> turns;
    std::vector<glm::vec3> shifts;
    std::vector<glm::mat4> transforms;
};

/// The middle joint between `start` and `end` for two bones of these lengths, bent toward `pole`.
/// Where the two are too short they are taken as stretched.
glm::vec3 middleJoint(const glm::vec3 &start, const glm::vec3 &end, float upper, float lower,
                      const glm::vec3 &pole);

/// `matrix` turned by degrees about x, then y, then z.
glm::mat4 turned(const glm::vec3 &degrees);
