#include "tools/assets/pictures/Grounds.h"

#include "tools/assets/pictures/GrassBlades.h"
#include "tools/assets/pictures/Noise.h"
#include "tools/assets/pictures/Stroke.h"

namespace {

/// A flower as it stands: where it looks, how far it nods.
struct Flower {
    glm::vec2 middle{};
    float size = 26; ///< From the middle to a petal's tip, in texels.
    float turn = 0;
    glm::vec2 nod{}; ///< Where the trumpet's mouth is off the middle, as a share of the size.
    glm::vec3 petals{};
    glm::vec3 trumpet{};
};

/// Soft shade under a flower, from the sky that it hides.
void drawContactShade(Picture &picture, const Flower &flower) {
    drawStamp(flower.middle, 1.5F * flower.size, 0, [&](int x, int y, glm::vec2 q) {
        const float depth = std::max(0.0F, 1.0F - glm::length(q));
        picture.at(x, y) *= 1.0F - 0.55F * depth;
    });
}

void drawPetal(Picture &picture, const Flower &flower, float angle, float brightness) {
    const glm::vec2 direction(std::cos(angle), std::sin(angle));
    const float foreshortened = flower.size * (1.0F + 0.35F * glm::dot(direction, flower.nod));
    const glm::vec2 centre = flower.middle + 0.52F * foreshortened * direction;
    const float half = 0.56F * foreshortened;
    drawStamp(centre, half, angle, [&](int x, int y, glm::vec2 q) {
        // Widest a little beyond the middle, drawn out to a point.
        const float t = 0.5F * (q.x + 1.0F);
        const float width =
            0.60F * std::pow(std::sin(3.1415927F * std::pow(t, 0.8F)), 0.75F) * (1.0F - 0.25F * t);
        const float inside = (width - std::abs(q.y)) * half;
        const float crease = std::exp(-90.0F * q.y * q.y);
        const float veins = 0.02F * std::sin(40.0F * q.y + 6.0F * t);
        const float shade = 0.80F + 0.24F * t + veins + 0.06F * crease - 0.18F * std::abs(q.y) / 0.6F;
        const float rim = glm::smoothstep(0.0F, 3.0F, inside);
        blend(picture, x, y, flower.petals * brightness * shade * (0.86F + 0.14F * rim),
              glm::clamp(inside + 0.5F, 0.0F, 1.0F));
    });
}

/// The trumpet from its mouth's side: a frilled rim around a deep throat.
void drawTrumpet(Picture &picture, const Flower &flower) {
    const glm::vec2 mouth = flower.middle + flower.size * 0.30F * flower.nod;
    const float radius = 0.40F * flower.size;
    for (int step = 0; step <= 6; ++step) {
        const float t = static_cast<float>(step) / 6.0F;
        const glm::vec2 centre = glm::mix(flower.middle, mouth, t);
        const float reach = radius * (0.62F + 0.38F * t * t);
        drawStamp(centre, 1.2F * reach, flower.turn, [&](int x, int y, glm::vec2 q) {
            const float angle = std::atan2(q.y, q.x);
            const float frill = t > 0.9F ? 0.07F * std::sin(12.0F * angle) : 0.0F;
            const float d = 1.2F * glm::length(q) / (1.0F + frill);
            const float coverage = glm::clamp((1.0F - d) * reach + 0.5F, 0.0F, 1.0F);
            const float wall = 0.70F + 0.12F * t + 0.05F * std::sin(18.0F * angle);
            const float open = t > 0.9F ? glm::mix(0.50F, 1.12F, glm::smoothstep(0.25F, 0.95F, d)) : wall;
            blend(picture, x, y, flower.trumpet * open, coverage);
        });
    }
    for (int i = 0; i < 6; ++i) {
        const float angle = flower.turn + circle * static_cast<float>(i) / 6.0F;
        const glm::vec2 anther = mouth + 0.22F * radius * glm::vec2(std::cos(angle), std::sin(angle));
        drawStamp(anther, 2.2F, 0, [&](int x, int y, glm::vec2 q) {
            blend(picture, x, y, {0.93F, 0.80F, 0.30F}, glm::clamp(1.6F - 2.0F * glm::length(q), 0.0F, 1.0F));
        });
    }
}

void drawFlower(Picture &picture, const Flower &flower) {
    drawContactShade(picture, flower);
    // Three petals lie behind the other three.
    for (const int back : {1, 0}) {
        for (int petal = 0; petal < 3; ++petal) {
            const float angle =
                flower.turn + circle * (static_cast<float>(petal) + 0.5F * static_cast<float>(back)) / 3.0F;
            drawPetal(picture, flower, angle, back == 1 ? 0.86F : 1.0F);
        }
    }
    drawTrumpet(picture, flower);
}

/// Long flat leaves, bluish green.
void drawLeaves(Picture &picture, int count, Random &random) {
    for (int i = 0; i < count; ++i) {
        const glm::vec2 root(groundSide * random.fraction(), groundSide * random.fraction());
        const float angle = circle * random.fraction();
        for (int leaf = 0; leaf < 4; ++leaf) {
            const glm::vec3 color = glm::vec3(0.38F, 0.56F, 0.32F) * random.between(0.75F, 1.15F);
            drawBlade(picture, root + 5.0F * random.bell(), angle + 1.4F * random.bell(),
                      random.between(60.0F, 110.0F), random.between(3.2F, 4.6F), 0.55F * color, color,
                      random);
        }
    }
}

/// Places that keep their distance from each other around the torus, nowhere more than elsewhere.
std::vector<glm::vec2> flowerPlaces(int count, float distance, Random &random) {
    std::vector<glm::vec2> places;
    for (int attempt = 0; attempt < 60 * count && static_cast<int>(places.size()) < count; ++attempt) {
        const glm::vec2 place(groundSide * random.fraction(), groundSide * random.fraction());
        bool free = true;
        for (const glm::vec2 &other : places) {
            const glm::vec2 d = glm::abs(place - other);
            const glm::vec2 around = glm::min(d, static_cast<float>(groundSide) - d);
            free = free && glm::dot(around, around) > distance * distance;
        }
        if (free) {
            places.push_back(place);
        }
    }
    return places;
}

Flower someFlower(glm::vec2 place, Random &random) {
    Flower flower;
    flower.middle = place;
    flower.size = random.between(22.0F, 31.0F);
    flower.turn = circle * random.fraction();
    const float toward = circle * random.fraction();
    flower.nod = random.between(0.1F, 0.9F) * glm::vec2(std::cos(toward), std::sin(toward));
    const float pale = random.fraction();
    flower.petals = glm::mix(glm::vec3(1.0F, 0.87F, 0.22F), glm::vec3(1.0F, 0.95F, 0.60F), pale * pale);
    flower.trumpet =
        glm::mix(glm::vec3(1.0F, 0.74F, 0.10F), glm::vec3(1.0F, 0.58F, 0.10F), random.fraction());
    return flower;
}

} // namespace

Picture daffodilMeadow() {
    Random random(401);
    Picture picture(groundSide);
    picture.fill([](glm::vec2 uv) {
        return glm::vec3(0.17F, 0.22F, 0.09F) * (1.0F + 0.4F * fractalNoise(uv, 14, 4, 402));
    });
    GrassLook look;
    look.tufts = 6600;
    look.root = {0.15F, 0.22F, 0.08F};
    look.colors = {
        {0.36F, 0.55F, 0.20F}, {0.44F, 0.61F, 0.24F}, {0.34F, 0.51F, 0.24F}, {0.50F, 0.64F, 0.28F}};
    drawGrass(picture, look, Field(groundSide, 1.0F), random);
    drawLeaves(picture, 260, random);
    look.tufts = 800;
    drawGrass(picture, look, Field(groundSide, 1.0F), random);
    for (const glm::vec2 place : flowerPlaces(105, 78, random)) {
        drawFlower(picture, someFlower(place, random));
    }
    return picture;
}
