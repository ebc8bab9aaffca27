#include "tools/assets/characters/Figure.h"

#include <cmath>
#include <glm/gtc/constants.hpp>

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
