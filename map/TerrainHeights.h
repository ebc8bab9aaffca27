#pragma once

#include <cstddef>
#include <memory>
#include <vector>

struct TerrainVertex;

/// The heights of a grid, in grid order, as a value. Copies share their numbers, and a value taken
/// from a grid shares with an earlier one whatever has not changed since.
class TerrainHeights {
public:
    TerrainHeights() = default;

    /// The heights of the grid; parts that are the same, bit by bit, in `earlier` are shared with it.
    TerrainHeights(const std::vector<TerrainVertex> &grid, const TerrainHeights &earlier);

    std::size_t size() const { return count; }

    /// Gives the heights to a grid of size() points.
    void copyTo(std::vector<TerrainVertex> &grid) const;

    /// The same numbers, bit by bit: a file tells −0 from 0.
    friend bool operator==(const TerrainHeights &a, const TerrainHeights &b);

private:
    using Part = std::vector<float>;
    static constexpr std::size_t partSize = 2048;

    std::size_t count = 0;
    std::vector<std::shared_ptr<const Part>> parts; ///< Of partSize numbers, the last of what is left.
};
