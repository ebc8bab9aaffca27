#pragma once

#include "tools/assets/characters/TexelMap.h"

#include <QImage>

/// Light and coats of a mesh at rest, gathered once; a skin for each team is mixed from them.
class SkinBaker {
public:
    SkinBaker(const Mesh &mesh, const std::vector<Part> &parts);

    /// `teamColour` as seen in an image, 0 … 1.
    QImage skin(const glm::vec3 &teamColour) const;

private:
    struct Lit {
        glm::vec3 diffuse{0.0f};
        glm::vec3 mirrored{0.0f};
        float shine = 0.0f;
        glm::vec3 colour{0.0f}; ///< The coat's and its tone, in amounts of light.
        float tone = 0.0f;
    };

    void coat(const std::vector<Part> &parts);
    void light(const Mesh &mesh);
    glm::vec3 reliefNormal(unsigned x, unsigned y) const;
    glm::vec3 colourOf(std::size_t texel, const glm::vec3 &linearTeamColour) const;

    std::vector<Texel> texels;
    std::vector<Coat> coats;
    std::vector<Lit> lights;
    std::vector<bool> buried; ///< Inside another part.
};
