#include "tools/assets/pictures/GrassBlades.h"

#include "tools/assets/pictures/Stroke.h"

namespace {} // namespace

void drawBlade(Picture &picture, glm::vec2 root, float angle, float length, float thickness,
               glm::vec3 rootColor, glm::vec3 tipColor, Random &random) {
    const float bend = 0.5F * random.bell();
    Stroke stroke;
    stroke.start = root;
    stroke.control = root + 0.5F * length * glm::vec2(std::cos(angle), std::sin(angle));
    stroke.end = stroke.control + 0.5F * length * glm::vec2(std::cos(angle + bend), std::sin(angle + bend));
    stroke.startRadius = 0.7F * thickness;
    stroke.middleRadius = thickness;
    stroke.endRadius = 0.1F;
    drawStroke(stroke, [&](const StrokeTexel &texel) {
        glm::vec3 color = glm::mix(rootColor, tipColor, std::min(1.0F, 1.25F * texel.along));
        // A blade is folded along its rib: one half is turned up more than the other.
        color *= 1.0F + 0.10F * texel.across - 0.16F * texel.across * texel.across;
        color *= 1.0F + 0.12F * texel.along;
        blend(picture, texel.x, texel.y, color, texel.coverage);
    });
}

void drawGrass(Picture &picture, const GrassLook &look, const Field &cover, Random &random) {
    const auto side = static_cast<float>(picture.side());
    for (int tuft = 0; tuft < look.tufts; ++tuft) {
        const float height = static_cast<float>(tuft) / static_cast<float>(look.tufts);
        const glm::vec2 middle(side * random.fraction(), side * random.fraction());
        const float chance = cover.at(static_cast<int>(middle.x), static_cast<int>(middle.y));
        const int tint = random.below(static_cast<int>(look.colors.size()));
        if (random.fraction() >= chance) {
            continue;
        }
        const float lean = circle * random.fraction();
        for (int blade = 0; blade < look.bladesPerTuft; ++blade) {
            const float angle = lean + 1.25F * random.bell();
            const glm::vec2 root =
                middle + look.spread * random.fraction() * glm::vec2(std::cos(angle), std::sin(angle));
            const int other = random.below(static_cast<int>(look.colors.size()));
            glm::vec3 color =
                glm::mix(look.colors[static_cast<std::size_t>(tint)],
                         look.colors[static_cast<std::size_t>(other)], 0.45F * random.fraction());
            color *= (0.62F + 0.42F * height) * random.between(0.86F, 1.14F);
            drawBlade(picture, root, angle, random.between(look.shortest, look.longest),
                      look.thickest * random.between(0.6F, 1.0F),
                      glm::mix(look.root, color, 0.15F + 0.35F * height), color, random);
        }
    }
}
