#pragma once

#include <QImage>
#include <glm/glm.hpp>
#include <vector>

/// A picture of islands. What lies between them takes the colours of their rims, so that smaller
/// versions of the picture do not mix in a foreign colour.
class SkinSpill {
public:
    explicit SkinSpill(unsigned side);

    void set(unsigned x, unsigned y, const glm::vec3 &colour);
    QImage image() const;

private:
    struct Level {
        unsigned side;
        std::vector<glm::vec4> sums; ///< Colour times weight, weight.
    };

    Level halved(const Level &level) const;

    Level full;
};
