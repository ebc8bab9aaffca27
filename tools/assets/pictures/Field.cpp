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

/// Large shapes are looked at in a picture of so much smaller a side.
constexpr int reduction = 8;

Picture reduced(const Picture &picture) {
    Picture out = picture;
    for (int size = 1; size < reduction; size *= 2) {
        out = halved(out);
    }
    return out;
}

/// What a reduced picture holds at a texel of the full one, between its own texels.
glm::vec3 sampled(const Picture &reduced, int x, int y) {
    const glm::vec2 p = (glm::vec2(x, y) + 0.5F) / static_cast<float>(reduction) - 0.5F;
    const glm::vec2 base = glm::floor(p);
    const glm::ivec2 i(base);
    const glm::vec2 d = p - base;
    return glm::max(glm::mix(glm::mix(reduced.at(i.x, i.y), reduced.at(i.x + 1, i.y), d.x),
                             glm::mix(reduced.at(i.x, i.y + 1), reduced.at(i.x + 1, i.y + 1), d.x), d.y),
                    glm::vec3(1e-5F));
}

glm::vec3 meanOf(const Picture &picture) {
    glm::dvec3 sum(0);
    for (const glm::vec3 &color : picture.values()) {
        sum += glm::dvec3(color);
    }
    return glm::vec3(sum / static_cast<double>(picture.values().size()));
}

template <class Function>
void changeEach(Picture &picture, Function function) {
    for (int y = 0; y < picture.side(); ++y) {
        for (int x = 0; x < picture.side(); ++x) {
            picture.at(x, y) = function(x, y);
        }
    }
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

Field standardised(const Field &field, int radius) {
    Field out = relief(field, radius);
    Field squares = out;
    for (float &value : squares.values()) {
        value *= value;
    }
    squares = blurred(squares, radius);
    for (std::size_t i = 0; i < out.values().size(); ++i) {
        out.values()[i] /= std::sqrt(squares.values()[i]) + 1e-6F;
    }
    return out;
}

void evenOut(Picture &picture, float amount) {
    const int side = picture.side();
    const Picture broad = blurred(reduced(picture), side / reduction / 10);
    const glm::vec3 mean = meanOf(broad);
    changeEach(picture, [&](int x, int y) { return picture.at(x, y) * (mean / sampled(broad, x, y)); });
    const Picture patches = blurred(reduced(picture), side / reduction / 28);
    changeEach(picture, [&](int x, int y) {
        return picture.at(x, y) * glm::mix(glm::vec3(1), mean / sampled(patches, x, y), amount);
    });
    // What is left of each texel's distance from the mean, squared, says how lively its place is.
    Picture squares(side);
    for (std::size_t i = 0; i < squares.values().size(); ++i) {
        const glm::vec3 away = picture.values()[i] - mean;
        squares.values()[i] = glm::vec3(glm::dot(away, away) + 1e-5F);
    }
    const Picture lively = blurred(reduced(squares), side / reduction / 12);
    const float usual = meanOf(lively).x;
    changeEach(picture, [&](int x, int y) {
        const float scale = std::pow(usual / sampled(lively, x, y).x, 0.5F * amount);
        return mean + scale * (picture.at(x, y) - mean);
    });
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
