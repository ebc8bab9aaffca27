#pragma once

#include <cstdint>
#include <glm/glm.hpp>

/// Noise that repeats: every function of a `period` takes lattice coordinates and has the same value at
/// p and p + period on each axis, so a picture that spans one period joins itself on all four sides.
/// Hash lattices, because the maths library's own periodic noise takes ten times as long per sample.

/// A full turn, in radians.
inline constexpr float circle = 6.2831853F;

/// A number whose bits each depend on all bits of `value`.
constexpr std::uint32_t mixed(std::uint32_t value) {
    value ^= value >> 16U;
    value *= 0x7FEB352DU;
    value ^= value >> 15U;
    value *= 0x846CA68BU;
    return value ^ (value >> 16U);
}

/// A well-mixed number of two lattice coordinates and a seed.
constexpr std::uint32_t hashed(int x, int y, std::uint32_t seed) {
    return mixed(static_cast<std::uint32_t>(x) * 0x9E3779B1U + static_cast<std::uint32_t>(y) * 0x85EBCA77U +
                 seed * 0xC2B2AE3DU);
}

/// The same as a fraction from 0 to below 1.
constexpr float hashedFraction(int x, int y, std::uint32_t seed) {
    return static_cast<float>(hashed(x, y, seed) >> 8U) / 16777216.0F;
}

/// Gradient noise, about -1 to 1.
float gradientNoise(glm::vec2 p, int period, std::uint32_t seed);

/// Octaves of gradient noise over a whole picture: `uv` runs from 0 to 1, the first octave has `period`
/// lattice steps, each further one twice as many at `gain` times the height. About -1 to 1.
float fractalNoise(glm::vec2 uv, int period, int octaves, std::uint32_t seed, float gain = 0.5F);

/// Like fractalNoise with sharp crests and broad hollows, 0 to about 1.
float ridgedNoise(glm::vec2 uv, int period, int octaves, std::uint32_t seed);

/// What a point sees of a jittered grid of points, one in each lattice cell.
struct CellSample {
    float nearest = 0; ///< Distance to the closest point, in lattice steps.
    float second = 0;  ///< Distance to the second closest.
    float edge = 0;    ///< Distance to the border between the two.
    glm::vec2 toCentre{};
    std::uint32_t id = 0; ///< Of the closest point.
};

/// Cellular noise; `uv` from 0 to 1 spans `period` lattice cells. `jitter` 0 is a regular grid, 1 free.
CellSample cellNoise(glm::vec2 uv, int period, float jitter, std::uint32_t seed);

/// Gradient noise in space, about -1 to 1; does not repeat within 1024 steps.
float spaceNoise(glm::vec3 p, std::uint32_t seed);

/// Octaves of spaceNoise, each of twice the frequency and `gain` times the height.
float spaceFractal(glm::vec3 p, int octaves, std::uint32_t seed, float gain = 0.5F);

/// A stream of random numbers that is the same on every machine.
class Random {
public:
    explicit Random(std::uint32_t seed) : m_state(seed * 2654435761U + 1U) {}

    /// From 0 to below 1.
    float fraction();
    float between(float low, float high) { return low + (high - low) * fraction(); }
    /// Sum of uniform numbers: mean 0, deviation 1, never beyond 3.5.
    float bell();
    int below(int count) { return static_cast<int>(fraction() * static_cast<float>(count)); }

private:
    std::uint32_t m_state;
};
