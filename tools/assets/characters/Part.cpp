#include "tools/assets/characters/Part.h"

#include <cmath>
#include <glm/gtc/constants.hpp>

Profile roundProfile(unsigned corners) {
    return softProfile(corners, 2.0f);
}

Profile softProfile(unsigned corners, float exponent) {
    Profile profile;
    for (unsigned i = 0; i < corners; ++i) {
        const float angle = glm::two_pi<float>() * static_cast<float>(i) / static_cast<float>(corners) -
                            glm::half_pi<float>();
        const glm::vec2 circle(std::cos(angle), std::sin(angle));
        const float norm = std::pow(
            std::pow(std::abs(circle.x), exponent) + std::pow(std::abs(circle.y), exponent), 1.0f / exponent);
        profile.push_back(circle / norm);
    }
    return profile;
}

Profile boxProfile(float cut) {
    const float near = 1.0f - cut;
    return {{-near, -1}, {near, -1}, {1, -near}, {1, near}, {near, 1}, {-near, 1}, {-1, near}, {-1, -near}};
}

Part &Part::ring(const glm::vec3 &centre, const glm::vec2 &radius, const Influence &bones,
                 const glm::vec3 &along) {
    rings.push_back({centre, radius, bones, along});
    return *this;
}

Part &Part::tip(const glm::vec3 &centre, const Influence &bones) {
    return ring(centre, glm::vec2(0.0f), bones);
}
