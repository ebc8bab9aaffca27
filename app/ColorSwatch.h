#pragma once

#include <QIcon>
#include <QSize>
#include <array>

/// The size of a swatch in logical pixels, room to what follows it included.
inline constexpr QSize colorSwatchSize{36, 14};

/// A small framed field of a colour; components outside 0 to 1 are shown as the nearest.
QIcon colorSwatch(const std::array<float, 3> &color);
