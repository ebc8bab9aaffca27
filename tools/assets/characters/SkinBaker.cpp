#include "tools/assets/characters/SkinBaker.h"

#include "tools/assets/characters/Materials.h"
#include "tools/assets/characters/Occlusion.h"
#include "tools/assets/characters/SkinSpill.h"

#include <algorithm>
#include <cmath>

namespace {

/// From the figure toward the preview's eye.
const glm::vec3 toViewer = glm::normalize(glm::vec3(10.6f, 6.0f, 5.0f));
const glm::vec3 toLamp = glm::normalize(glm::vec3(0.55f, -0.26f, 0.82f));

/// Light that comes from a direction: a grey floor, a bright sky and a broad lamp above.
glm::vec3 radiance(const glm::vec3 &direction) {
    const float up = glm::smoothstep(-0.7f, 1.0f, direction.z);
    const float lamp = std::pow(std::max(glm::dot(direction, toLamp), 0.0f), 5.0f);
    return glm::mix(glm::vec3(0.22f, 0.20f, 0.19f), glm::vec3(0.62f, 0.68f, 0.80f), up) +
           lamp * glm::vec3(3.5f, 3.3f, 3.0f);
}

/// The light on a surface with this normal, as much of it as arrives.
glm::vec3 gather(const glm::vec3 &normal, const Visibility &open) {
    static const auto arriving = [] {
        std::array<glm::vec3, lightDirections> light{};
        for (std::size_t i = 0; i < lightDirections; ++i)
            light[i] = radiance(lightSphere()[i]);
        return light;
    }();
    glm::vec3 sum(0.0f);
    for (std::size_t i = 0; i < lightDirections; ++i) {
        if (open[i])
            sum += arriving[i] * std::max(glm::dot(normal, lightSphere()[i]), 0.0f);
    }
    // A little light reaches every fold: what moves apart may show it.
    return glm::vec3(0.07f, 0.068f, 0.066f) + sum * (3.1f / static_cast<float>(lightDirections));
}

/// What a polished surface shows: a dark floor, a bright horizon, a paler sky, the lamp.
glm::vec3 surroundings(const glm::vec3 &direction) {
    const float floor = glm::smoothstep(0.05f, -0.12f, direction.z);
    const float horizon = std::exp(-12.0f * direction.z * direction.z);
    const float lamp = glm::smoothstep(0.90f, 0.99f, glm::dot(direction, toLamp));
    const glm::vec3 sky = glm::mix(glm::vec3(0.42f, 0.46f, 0.54f), glm::vec3(0.85f, 0.9f, 1.0f), direction.z);
    return glm::mix(sky + 0.25f * horizon, glm::vec3(0.13f, 0.11f, 0.10f), floor) + 2.2f * lamp;
}

glm::vec3 toLinear(const glm::vec3 &seen) {
    return glm::pow(seen, glm::vec3(2.2f));
}

glm::vec3 toSeen(const glm::vec3 &linear) {
    const glm::vec3 rolled = linear / (1.0f + 0.12f * linear * linear);
    return glm::pow(glm::clamp(rolled, 0.0f, 1.0f), glm::vec3(1.0f / 2.2f));
}

} // namespace

SkinBaker::SkinBaker(const Mesh &mesh, const std::vector<Part> &parts) : texels(mapTexels(mesh, parts)) {
    coat(parts);
    light(mesh);
}

void SkinBaker::coat(const std::vector<Part> &parts) {
    coats.resize(texels.size());
    for (std::size_t i = 0; i < texels.size(); ++i) {
        if (!texels[i].covered)
            continue;
        const Part &part = parts[texels[i].part];
        coats[i] = coatOf(part, texels[i].point);
        if (part.decorate)
            part.decorate(texels[i].point, coats[i]);
    }
}

glm::vec3 SkinBaker::reliefNormal(unsigned x, unsigned y) const {
    const std::size_t here = y * bakeSize + x;
    const Texel &texel = texels[here];
    glm::vec3 slope(0.0f);
    const std::array<std::pair<bool, std::size_t>, 2> next{
        {{x + 1 < bakeSize, here + 1}, {y + 1 < bakeSize, here + bakeSize}}};
    for (std::size_t axis = 0; axis < 2; ++axis) {
        const auto [inside, other] = next[axis];
        if (!inside || !texels[other].covered || texels[other].part != texel.part)
            continue;
        const glm::vec3 &step = texel.step[axis];
        slope += step * ((coats[other].height - coats[here].height) / std::max(glm::dot(step, step), 1e-6f));
    }
    const float steepest = 1.2f;
    const float steepness = glm::length(slope);
    if (steepness > steepest)
        slope *= steepest / steepness;
    return glm::normalize(texel.point.normal - slope);
}

void SkinBaker::light(const Mesh &mesh) {
    Occlusion occlusion(mesh);
    lights.resize(texels.size());
    constexpr unsigned block = 2 * samplesAcross; // Visibility changes slowly: one answer serves a block.
    std::vector<Visibility> seen(std::size_t{bakeSize / block} * (bakeSize / block));
    std::vector<unsigned> owner(seen.size(), ~0u);
    buried.assign(texels.size(), false);
    for (unsigned y = 0; y < bakeSize; ++y) {
        for (unsigned x = 0; x < bakeSize; ++x) {
            const std::size_t here = y * bakeSize + x;
            const Texel &texel = texels[here];
            if (!texel.covered)
                continue;
            const std::size_t cell = (y / block) * (bakeSize / block) + x / block;
            if (owner[cell] != texel.part) {
                owner[cell] = texel.part;
                seen[cell] = occlusion.openDirections(texel.point.position, texel.facing);
            }
            if (seen[cell].count() < 3) {
                // Inside another part: no light, and never seen. Its visible neighbours spill into it.
                buried[here] = true;
                continue;
            }
            const glm::vec3 normal = reliefNormal(x, y);
            const glm::vec3 mirror = glm::reflect(-toViewer, normal);
            const float openness = std::min(1.0f, static_cast<float>(seen[cell].count()) / 56.0f);
            const Coat &coat = coats[here];
            lights[here] = {gather(normal, seen[cell]), surroundings(mirror) * openness,
                            std::pow(1.0f - std::abs(glm::dot(normal, toViewer)), 4.0f),
                            toLinear(glm::clamp(coat.colour, 0.0f, 1.0f)),
                            std::pow(std::max(coat.tone, 0.0f), 2.2f)};
        }
    }
}

glm::vec3 SkinBaker::colourOf(std::size_t texel, const glm::vec3 &linearTeamColour) const {
    const Coat &coat = coats[texel];
    const Lit &lit = lights[texel];
    const glm::vec3 base = glm::mix(lit.colour, linearTeamColour * lit.tone, coat.team);
    const glm::vec3 diffuse = base * lit.diffuse * (1.0f - 0.75f * coat.metal);
    const glm::vec3 mirror = glm::mix(glm::vec3(0.06f + 0.25f * lit.shine), base * 1.6f, coat.metal);
    const glm::vec3 reflected = mirror * lit.mirrored * coat.gloss;
    return glm::mix(diffuse + reflected, base * 1.25f, coat.glow);
}

QImage SkinBaker::skin(const glm::vec3 &teamColour) const {
    SkinSpill picture(skinSize);
    const glm::vec3 linearTeamColour = toLinear(teamColour);
    for (unsigned y = 0; y < skinSize; ++y) {
        for (unsigned x = 0; x < skinSize; ++x) {
            glm::vec3 sum(0.0f);
            unsigned count = 0;
            for (unsigned sample = 0; sample < samplesAcross * samplesAcross; ++sample) {
                const std::size_t here = std::size_t{y * samplesAcross + sample / samplesAcross} * bakeSize +
                                         x * samplesAcross + sample % samplesAcross;
                if (!texels[here].covered || buried[here])
                    continue;
                sum += toSeen(colourOf(here, linearTeamColour));
                ++count;
            }
            if (count > 0)
                picture.set(x, y, sum / static_cast<float>(count));
        }
    }
    return picture.image();
}
