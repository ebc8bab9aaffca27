#include "tools/assets/pictures/Field.h"

#include <algorithm>
#include <cmath>

namespace {

/// One box pass along x (or y), with a running sum.
template <class Value>
Torus<Value> boxed(const Torus<Value> &in, int radius, bool alongX) {
    Torus<Value> out(in.side());
    const float share = 1.0F / static_cast<float>(2 * radius + 1);
    for (int line = 0; line < in.side(); ++line) {
        const auto value = [&](int i) { return alongX ? in.at(i, line) : in.at(line, i); };
        Value sum(0);
        for (int i = -radius; i <= radius; ++i) {
            sum += value(i);
        }
        for (int i = 0; i < in.side(); ++i) {
            (alongX ? out.at(i, line) : out.at(line, i)) = sum * share;
            sum += value(i + radius + 1) - value(i - radius);
        }
    }
    return out;
}

template <class Value>
Torus<Value> smoothed(const Torus<Value> &in, int radius) {
    const int box = std::max(1, (radius + 1) / 2);
    Torus<Value> out = in;
    for (int pass = 0; pass < 3; ++pass) {
        out = boxed(boxed(out, box, true), box, false);
    }
    return out;
}

} // namespace

Field blurred(const Field &field, int radius) {
    return smoothed(field, radius);
}

Picture blurred(const Picture &picture, int radius) {
    return smoothed(picture, radius);
}

Field relief(const Field &height, int radius) {
    Field out = blurred(height, radius);
    for (std::size_t i = 0; i < out.values().size(); ++i) {
        out.values()[i] = height.values()[i] - out.values()[i];
    }
    return out;
}

Field levelness(const Field &height, float scale) {
    Field out(height.side());
    for (int y = 0; y < height.side(); ++y) {
        for (int x = 0; x < height.side(); ++x) {
            const float dx = 0.5F * scale * (height.at(x + 1, y) - height.at(x - 1, y));
            const float dy = 0.5F * scale * (height.at(x, y + 1) - height.at(x, y - 1));
            out.at(x, y) = 1.0F / std::sqrt(1.0F + dx * dx + dy * dy);
        }
    }
    return out;
}

Picture halved(const Picture &picture) {
    Picture out(picture.side() / 2);
    for (int y = 0; y < out.side(); ++y) {
        for (int x = 0; x < out.side(); ++x) {
            out.at(x, y) = 0.25F * (picture.at(2 * x, 2 * y) + picture.at(2 * x + 1, 2 * y) +
                                    picture.at(2 * x, 2 * y + 1) + picture.at(2 * x + 1, 2 * y + 1));
        }
    }
    return out;
}

float luminance(glm::vec3 color) {
    return glm::dot(color, glm::vec3(0.299F, 0.587F, 0.114F));
}

float meanLuminance(const Picture &picture) {
    double sum = 0;
    for (const glm::vec3 &color : picture.values()) {
        sum += static_cast<double>(luminance(glm::clamp(color, 0.0F, 1.0F)));
    }
    return static_cast<float>(sum / static_cast<double>(picture.values().size()));
}

void flattenLarge(Picture &picture, int radius, float amount) {
    const Picture large = blurred(picture, radius);
    glm::vec3 mean(0);
    for (const glm::vec3 &color : large.values()) {
        mean += color / static_cast<float>(large.values().size());
    }
    for (std::size_t i = 0; i < large.values().size(); ++i) {
        const glm::vec3 factor = mean / glm::max(large.values()[i], glm::vec3(0.02F));
        picture.values()[i] *= glm::mix(glm::vec3(1), factor, amount);
    }
}

void setMeanLuminance(Picture &picture, float mean) {
    // Clipping at white takes some of the gain away, so it is approached in a few steps.
    for (int step = 0; step < 4; ++step) {
        const float gain = mean / std::max(0.01F, meanLuminance(picture));
        for (glm::vec3 &color : picture.values()) {
            color *= gain;
        }
    }
}

void cutWhereQuiet(Picture &picture) {
    // The column (or row) after which the step to the next is smallest.
    const auto quietest = [&](bool columns) {
        float least = 1e9F;
        int place = 0;
        for (int line = 0; line < picture.side(); ++line) {
            float step = 0;
            for (int i = 0; i < picture.side(); ++i) {
                const glm::vec3 d = columns ? picture.at(line, i) - picture.at(line - 1, i)
                                            : picture.at(i, line) - picture.at(i, line - 1);
                step += glm::abs(d.r) + glm::abs(d.g) + glm::abs(d.b);
            }
            if (step < least) {
                least = step;
                place = line;
            }
        }
        return place;
    };
    const int left = quietest(true);
    const int top = quietest(false);
    const Picture before = picture;
    for (int y = 0; y < picture.side(); ++y) {
        for (int x = 0; x < picture.side(); ++x) {
            picture.at(x, y) = before.at(x + left, y + top);
        }
    }
}

glm::vec3 ramp(const std::vector<glm::vec3> &stops, float position) {
    const float scaled = glm::clamp(position, 0.0F, 1.0F) * static_cast<float>(stops.size() - 1);
    const auto lower = std::min(static_cast<std::size_t>(scaled), stops.size() - 2);
    return glm::mix(stops[lower], stops[lower + 1], scaled - static_cast<float>(lower));
}
