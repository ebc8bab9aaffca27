#include "map/Erosion.h"

#include "map/TerrainMesh.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

/// The mean around a point. `visited` is the height of the neighbour visited last: it is added
/// last, and handed over rather than read back, since all else can be summed before it is known.
float meanAround(const float *p, std::ptrdiff_t n, float unvisited, float visited) {
    const float above = p[-n - 1] + p[-n] + p[-n + 1];
    const float below = p[n - 1] + p[n] + p[n + 1];
    return 0.125F * ((above + below + unvisited) + visited);
}

/// `before` is called with the index of each point just before a point next to it needs its
/// height for the first time, in rows 2 and up; `after` with each point of an inner row that got
/// its height.
template <typename Before, typename After>
void forwardPass(float *heights, std::ptrdiff_t n, Before before, After after) {
    for (std::ptrdiff_t first = n; first < n * (n - 1); first += n) {
        const std::ptrdiff_t last = first + n - 1;
        heights[first] = 0;
        before(first + n);
        before(first + n + 1);
        after(first);
        float height = 0;
        for (std::ptrdiff_t i = first + 1; i < last; ++i) {
            before(i + n + 1);
            height = meanAround(heights + i, n, heights[i + 1], height);
            heights[i] = height;
            after(i);
        }
        heights[last] = 0;
        after(last);
    }
}

template <typename After>
void backwardPass(float *heights, std::ptrdiff_t n, After after) {
    heights[n * (n - 1)] = 0;
    for (std::ptrdiff_t first = n * (n - 2); first > 0; first -= n) {
        const std::ptrdiff_t last = first + n - 1;
        heights[last] = 0;
        after(last);
        float height = 0;
        for (std::ptrdiff_t i = last - 1; i > first; --i) {
            height = meanAround(heights + i, n, heights[i - 1], height);
            heights[i] = height;
            after(i);
        }
        // The very first point of the inner rows is left out on the way back.
        if (first > n) {
            heights[first] = 0;
        }
        after(first);
    }
}

/// All passes; `before` is called in the first one only, `after` in the last one only.
template <typename Before, typename After>
void runPasses(float *heights, std::ptrdiff_t n, int passes, Before before, After after) {
    const auto nothing = [](std::ptrdiff_t) {};
    for (int pass = 0; pass < passes; ++pass) {
        const bool isLast = pass == passes - 1;
        if (pass == 0 && isLast) {
            forwardPass(heights, n, before, after);
        } else if (pass == 0) {
            forwardPass(heights, n, before, nothing);
        } else if (pass % 2 == 0) {
            isLast ? forwardPass(heights, n, nothing, after) : forwardPass(heights, n, nothing, nothing);
        } else {
            isLast ? backwardPass(heights, n, after) : backwardPass(heights, n, nothing);
        }
    }
}

} // namespace

void erode(TerrainMesh &terrain, int passes) {
    const std::ptrdiff_t n = terrain.pointsPerSide();
    if (n < 1) {
        return;
    }
    // Eighths, which change no digit of a sum and keep that of the largest heights finite.
    std::vector<float> eighths(terrain.vertices.size());
    float *copy = eighths.data();
    TerrainVertex *vertices = terrain.vertices.data();
    // A pass waits for one height after the other; meanwhile the copying goes on for free.
    const auto copyIn = [copy, vertices](std::ptrdiff_t i) { copy[i] = 0.125F * vertices[i].position.y; };
    const auto copyOut = [copy, vertices](std::ptrdiff_t i) { vertices[i].position.y = 8 * copy[i]; };
    for (std::ptrdiff_t i = 0; i < std::min(2 * n, n * n); ++i) {
        copyIn(i);
    }
    runPasses(copy, n, passes, copyIn, copyOut);
    for (std::ptrdiff_t i = 0; i < n; ++i) {
        vertices[i].position.y = 0;
        vertices[n * n - 1 - i].position.y = 0;
    }
    terrain.markChanged();
}
