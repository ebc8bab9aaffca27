#include "tools/levels/Landscapes.h"

#include "tools/levels/Sculptor.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

/// A repeatable number from 0 to 1 for a cell, to break up what is too regular.
double scatter(int column, int row) {
    auto h = static_cast<std::uint32_t>(column) * 374761393U + static_cast<std::uint32_t>(row) * 668265263U;
    h = (h ^ (h >> 13)) * 1274126177U;
    return static_cast<double>((h ^ (h >> 16)) & 0xFFFFU) / 65535.0;
}

/// The same for any place, smooth over about `size` cells; -1 to 1.
double roll(double column, double row, double size) {
    const double x = column / size + 50;
    const double y = row / size + 50;
    const int i = static_cast<int>(x);
    const int k = static_cast<int>(y);
    const double u = x - i;
    const double v = y - k;
    const double above = std::lerp(scatter(i, k), scatter(i + 1, k), u);
    return 2 * std::lerp(above, std::lerp(scatter(i, k + 1), scatter(i + 1, k + 1), u), v) - 1;
}

/// A round hill's share of its height at a distance, 1 in the middle and 0 from its radius on.
double hill(double column, double row, double atColumn, double atRow, double radius) {
    const double d = std::hypot(column - atColumn, row - atRow) / radius;
    return d < 1 ? 0.5 + 0.5 * std::cos(d * 3.141592653589793) : 0;
}

/// The same along a line from one place to another: a ridge.
double ridge(double column, double row, double fromColumn, double fromRow, double toColumn, double toRow,
             double radius) {
    const double x = toColumn - fromColumn;
    const double y = toRow - fromRow;
    const double along =
        std::clamp(((column - fromColumn) * x + (row - fromRow) * y) / (x * x + y * y), 0.0, 1.0);
    return hill(column, row, fromColumn + along * x, fromRow + along * y, radius);
}

/// A mountain's share of its height: steeper toward the top than a hill.
double peak(double column, double row, double atColumn, double atRow, double radius) {
    const double d = std::hypot(column - atColumn, row - atRow) / radius;
    return d < 1 ? std::pow(1 - d, 1.25) : 0;
}

/// Cells between a place and the map's edge.
double fromEdge(double column, double row) {
    return std::min({column, row, 19 - column, 19 - row});
}

int notches(double height) {
    return static_cast<int>(std::lround(height));
}

} // namespace

void shapeLakeValley(Sculptor &sculptor) {
    const auto lake = [](double c, double r) {
        const double water =
            1.1 * hill(c, r, 12.2, 7.2, 4.8) + 0.95 * hill(c, r, 7.4, 8.8, 3.8) + 0.1 * roll(c, r, 2);
        return std::min(water, 0.9) - 2.2 * hill(c, r, 12.4, 7.0, 2.1);
    };
    sculptor.turnWheel([lake](int c, int r) {
        const double chain = std::max({26 * peak(c, r, 4.2, 14.4, 5.4), 21 * peak(c, r, 8.6, 16.4, 4.6),
                                       15 * peak(c, r, 12.6, 15.6, 3.8), 19 * peak(c, r, 2.6, 10.4, 4)});
        const double hills = 9 * hill(c, r, 16.2, 14.4, 3.6) + 5 * hill(c, r, 17, 9.5, 2.4) +
                             6 * hill(c, r, 5, 3.8, 3.6) + 2 * hill(c, r, 9.8, 2.4, 2.6);
        const double knoll = 7 * hill(c, r, 12.4, 7.0, 2.4);
        const double rough = chain > 2 ? 2.2 * roll(c, r, 1.2) : 0.6 * roll(c, r, 2.2);
        const double open = std::min(1.0, fromEdge(c, r) / 1.5);
        const double slope = std::min(1.0, (fromEdge(c, r) + 0.4) / 3);
        return lake(c, r) > 0.3 ? 0 : notches((chain + hills) * slope + knoll + rough * open);
    });
    sculptor.turnWheel([lake](int c, int r) {
        const double depth = lake(c, r);
        return depth > 0.3 ? -notches(3 + 7 * depth) : 0;
    });
    sculptor.erodeTimes(5);
}

void shapeIslands(Sculptor &sculptor) {
    sculptor.turnWheel([](int c, int r) {
        // A sickle around a bay, a long ridge, a steep cone, a low double island and a rock in the middle.
        const double sickle = std::max({ridge(c, r, 2.5, 5.5, 4, 2.6, 2.1), ridge(c, r, 4, 2.6, 7, 3, 1.9),
                                        0.8 * ridge(c, r, 2.5, 5.5, 4, 7.6, 1.9)});
        const double spine = ridge(c, r, 11.6, 16.2, 16.8, 14.6, 2.4);
        const double cone = peak(c, r, 15.2, 4.8, 3.4);
        const double twins = std::max(hill(c, r, 3.6, 13.4, 2.4), 0.9 * hill(c, r, 5.8, 16, 2.5));
        const double rock = 0.9 * hill(c, r, 9.6, 9.6, 2);
        const double land = std::max({sickle, spine, cone, twins, rock});
        const double shore = 0.9 - fromEdge(c, r) + 0.7 * roll(c, r, 2.5);
        if (land > 0.22) {
            const double height = 5 * sickle + 9 * spine + 17 * cone + 5 * twins + 8 * rock;
            return notches(1 + height + 0.7 * roll(c, r, 1.2));
        }
        if (shore > 0) {
            return 0;
        }
        // A sea bed of humps and holes is darker than a level one, and water shows better on it.
        return -notches(5 + 6 * scatter(c, r));
    });
    sculptor.erodeTimes(5);
}

void shapeCrater(Sculptor &sculptor) {
    sculptor.turnWheel([](int c, int r) {
        const double d = std::hypot(c - 9.5, r - 9.5) + 0.5 * roll(c, r, 2);
        // Lava has broken through the rim on three sides and runs off.
        const double stream =
            std::max({ridge(c, r, 9.5, 9.5, 16.4, 3.6, 1.2), ridge(c, r, 9.5, 9.5, 4.6, 16.4, 1.2),
                      ridge(c, r, 9.5, 9.5, 3, 6, 1.2)});
        if (d < 3.4) {
            return -4;
        }
        if (stream > 0.3 && fromEdge(c, r) > 1) {
            return -3;
        }
        const double rim = d < 4.6 ? (d - 3.4) / 1.2 : std::max(0.0, 1 - (d - 4.6) / 4.6);
        return notches(18 * rim * (0.5 + 0.5 * rim) + 2.4 * roll(c, r, 1.4) * rim);
    });
    sculptor.erodeTimes(3);
}

void shapePass(Sculptor &sculptor) {
    sculptor.turnWheel([](int c, int r) {
        const double way = 9.5 + 2.4 * std::sin(r * 0.42);
        const double away = std::abs(c - way);
        const double open = std::clamp((away - 1.4) / 2.6, 0.0, 1.0);
        const double peaks = std::max({24 * peak(c, r, 3.6, 12.4, 4.6), 18 * peak(c, r, 2.8, 6.4, 4),
                                       15 * peak(c, r, 5.2, 16.2, 3.4), 12 * peak(c, r, 5.2, 3, 3),
                                       20 * peak(c, r, 15.6, 7.2, 4.4), 25 * peak(c, r, 15.4, 13.4, 4.6),
                                       13 * peak(c, r, 14, 2.8, 3.4), 12 * peak(c, r, 16.4, 17, 3)});
        const double saddle = 4 * hill(c, r, way, 9.5, 5);
        const double crags = 4 * (peaks > 3 ? 1 : 0.2) * roll(c, r, 1.1);
        const double slope = std::min(1.0, (fromEdge(c, r) + 0.3) / 2.6);
        return notches(peaks * open * slope + saddle + open * crags * std::min(1.0, fromEdge(c, r) / 2));
    });
    sculptor.turnWheel([](int c, int r) {
        const double tarn = std::max(hill(c, r, 10.4, 3.6, 2), hill(c, r, 8.6, 16, 1.7));
        return tarn > 0.4 ? -4 : 0;
    });
    sculptor.erodeTimes(2);
}

void shapeGorge(Sculptor &sculptor) {
    sculptor.turnWheel([](int c, int r) {
        const double gorge = 9.5 + 3.4 * std::sin(r * 0.36 + 0.5);
        // A side valley leaves it half way.
        const double valley = 2.6 - 3 * ridge(c, r, 10, 9, 17.5, 13, 1.7);
        const double away = std::min(std::abs(c - gorge) + 0.5 * roll(c, r, 3), valley < 2.6 ? valley : 9.0);
        // Up from the gorge and down to the map's edge by the same steps.
        const double edge =
            9.9 - std::pow(std::pow(c - 9.5, 4) + std::pow(r - 9.5, 4), 0.25) + 1.2 * roll(c + 9, r, 3);
        const auto step = [](double distance, double first, double width) {
            return distance < first ? 0.0 : std::min(3.0, 1 + std::floor((distance - first) / width));
        };
        const double terrace = std::min(step(away, 1.3, 1.15), step(edge, 0.8, 1.2));
        return notches(6 * terrace);
    });
    sculptor.erodeTimes(2);
}

void shapeMeadow(Sculptor &sculptor) {
    const auto lakes = [](double c, double r) {
        return std::max(
                   {hill(c, r, 14, 5.4, 3.8), 0.95 * hill(c, r, 5.4, 7, 3.2), hill(c, r, 11.5, 13.6, 3.6)}) +
               0.1 * roll(c, r, 1.6);
    };
    sculptor.turnWheel([lakes](int c, int r) {
        const double height = 6 * hill(c, r, 4.5, 14.6, 4.4) + 4.5 * hill(c, r, 16.5, 15.4, 3.2) +
                              3.5 * hill(c, r, 9.4, 8.6, 2.6) + 4 * hill(c, r, 8.6, 2.6, 2.8);
        return lakes(c, r) > 0.3 ? 0 : notches(height);
    });
    sculptor.turnWheel([lakes](int c, int r) {
        const double depth = lakes(c, r);
        return depth > 0.3 ? -notches(4 + 10 * depth) : 0;
    });
    sculptor.erodeTimes(4);
}
