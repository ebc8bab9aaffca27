#include "tools/assets/pictures/Ripples.h"

#include "tools/assets/pictures/Noise.h"

#include <complex>

namespace {

/// Gentle back, steep lee: rises over three quarters of a ripple's length, falls over the rest.
float profile(float phase) {
    constexpr float crest = 0.72F;
    const float t = phase < crest ? phase / crest : (1.0F - phase) / (1.0F - crest);
    return t * t * (3.0F - 2.0F * t);
}

struct Wave {
    int across = 0;
    int down = 0;
    float phase = 0;
};

std::vector<Wave> narrowBand(int count, Random &random) {
    const float spread = 0.085F * static_cast<float>(count);
    std::vector<Wave> waves;
    for (int i = 0; i < 34; ++i) {
        Wave wave;
        wave.down = count + static_cast<int>(std::lround(spread * random.bell()));
        wave.across = static_cast<int>(std::lround(1.9F * spread * random.bell()));
        wave.phase = circle * random.fraction();
        waves.push_back(wave);
    }
    return waves;
}

} // namespace

Field sandRipples(int side, int count, std::uint32_t seed) {
    Random random(seed);
    const std::vector<Wave> waves = narrowBand(count, random);
    Field ripples(side);
    std::vector<std::complex<float>> row(static_cast<std::size_t>(side));
    for (int y = 0; y < side; ++y) {
        std::fill(row.begin(), row.end(), std::complex<float>(0));
        for (const Wave &wave : waves) {
            const float step = circle / static_cast<float>(side);
            const float down = static_cast<float>(wave.down * y % side);
            std::complex<float> value = std::polar(1.0F, step * down + wave.phase);
            const std::complex<float> turn = std::polar(1.0F, step * static_cast<float>(wave.across));
            for (std::complex<float> &sum : row) {
                sum += value;
                value = {value.real() * turn.real() - value.imag() * turn.imag(),
                         value.real() * turn.imag() + value.imag() * turn.real()};
            }
        }
        for (int x = 0; x < side; ++x) {
            const std::complex<float> sum = row[static_cast<std::size_t>(x)];
            const float phase = std::arg(sum) / circle + 0.5F;
            // Where the waves cancel each other the sand is flat: that is where crests fork.
            const float strength = glm::smoothstep(0.3F, 3.2F, std::abs(sum));
            ripples.at(x, y) = glm::mix(0.5F, profile(phase), strength);
        }
    }
    return ripples;
}
