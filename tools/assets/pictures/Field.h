#pragma once

#include <glm/glm.hpp>
#include <vector>

/// A square of values that wraps on all four sides; its side is a power of two.
template <class Value>
class Torus {
public:
    explicit Torus(int side, Value value = Value(0))
        : m_side(side), m_values(static_cast<std::size_t>(side) * static_cast<std::size_t>(side), value) {}

    int side() const { return m_side; }
    Value &at(int x, int y) { return m_values[index(x, y)]; }
    const Value &at(int x, int y) const { return m_values[index(x, y)]; }
    std::vector<Value> &values() { return m_values; }
    const std::vector<Value> &values() const { return m_values; }

    /// Sets every value from its place; `uv` is the texel's centre, 0 to 1.
    template <class Function>
    void fill(Function function) {
        const float step = 1.0F / static_cast<float>(m_side);
        for (int y = 0; y < m_side; ++y) {
            for (int x = 0; x < m_side; ++x) {
                at(x, y) =
                    function(glm::vec2(static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F) * step);
            }
        }
    }

private:
    std::size_t index(int x, int y) const {
        const int mask = m_side - 1;
        return static_cast<std::size_t>(y & mask) * static_cast<std::size_t>(m_side) +
               static_cast<std::size_t>(x & mask);
    }

    int m_side;
    std::vector<Value> m_values;
};

/// Heights, masks and the like.
using Field = Torus<float>;

/// Colours as they are shown, 0 black to 1 full.
using Picture = Torus<glm::vec3>;

/// The field smoothed over about `radius` texels (three box passes).
Field blurred(const Field &field, int radius);
Picture blurred(const Picture &picture, int radius);

/// How far each texel rises above its surroundings of `radius` texels: crests above 0, hollows below.
Field relief(const Field &height, int radius);

/// Cosine of the slope: 1 where level, less the steeper. `scale` is the height of value 1, in texels.
/// The same from every side: no light direction is baked in.
Field levelness(const Field &height, float scale);

/// The average of each 2 x 2 texels.
Picture halved(const Picture &picture);

float luminance(glm::vec3 color);
float meanLuminance(const Picture &picture);

/// The field with the same mean (0) and the same deviation (1) everywhere within about `radius` texels: a
/// threshold then cuts as much out of one place as of another.
Field standardised(const Field &field, int radius);

/// Takes away what would draw a grid over a map that repeats the picture: all that is larger than a
/// tenth of its side and, by `amount` from 0 to 1, patches down to a thirtieth and places that are
/// livelier than others.
void evenOut(Picture &picture, float amount);

/// Moves the picture around its torus so that its edges run where neighbouring texels differ least: what
/// the file format does to the edges then shows least.
void cutWhereQuiet(Picture &picture);

/// Scales the brightness so that the mean luminance becomes `mean`.
void setMeanLuminance(Picture &picture, float mean);

/// The colour at `position` 0 to 1 along equally spaced stops.
glm::vec3 ramp(const std::vector<glm::vec3> &stops, float position);
