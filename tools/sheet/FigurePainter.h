#pragma once

#include "models/Md2Content.h"

#include <QImage>
#include <array>
#include <vector>

/// Where a figure is looked at from. Parallel rays: every place is as large as every other.
struct FigureView {
    float azimuth = 0;   ///< Degrees from the figure's front toward its left.
    float elevation = 0; ///< Degrees above the floor.
    QSize size{280, 320};
    float scale = 4.4F;       ///< Pixels for one unit.
    Vec3 centre{0, 0, 29};    ///< Seen in the middle.
    QRgb ground = 0xff664c19; ///< As in the editor's preview.
};

/// The preview's own direction.
inline constexpr float previewAzimuth = 29.5F;
inline constexpr float previewElevation = 22.0F;

/// Paints models with a depth buffer, unlit as the preview does, but without OpenGL. What shows the
/// inside of a surface is counted, and painted in magenta.
class FigurePainter {
public:
    explicit FigurePainter(const FigureView &from);

    /// Adds what a model's commands draw in one of its frames, and returns the number of triangles. Without a
    /// skin it is grey, lit from the viewer.
    std::size_t add(const Md2Content &model, std::size_t frame, const QImage &skin = {});

    const QImage &picture() const { return image; }
    bool covers(int column, int row) const { return shown[index(column, row)] != 0; }
    long covered() const;       ///< Pixels that show a model.
    double insideShare() const; ///< Part of them that shows an inside, 0 … 1.

private:
    struct Corner {
        float x, y, depth, s, t;
    };

    std::size_t index(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(view.size.width()) +
               static_cast<std::size_t>(column);
    }
    Corner project(const Vec3 &position) const;
    void fill(std::array<Corner, 3> corners, const QImage &skin);

    FigureView view;
    Vec3 right, up, toViewer;
    QImage image;
    std::vector<float> depths;
    std::vector<signed char> shown; ///< 0 nothing, 1 outside, -1 inside.
};

/// Mean and worst share of pixels that show an inside over 72 directions and all of these frames.
struct Wholeness {
    double mean = 0;
    double worst = 0;
    FigureView worstView;
    std::size_t worstFrame = 0;
};
Wholeness wholeness(const Md2Content &model, const std::vector<std::size_t> &frames);

/// How far a vertex gets from where frame 0 has it, in the mean over all vertices.
float meanExcursion(const Md2Content &model, std::size_t firstFrame, std::size_t frameCount);
