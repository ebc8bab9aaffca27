#include "tools/sheet/FigurePainter.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>

namespace {

constexpr QRgb insideColour = 0xffff00ff;

float dot(const Vec3 &a, const Vec3 &b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

float radians(float degrees) {
    return degrees * 0.01745329F;
}

} // namespace

FigurePainter::FigurePainter(const FigureView &from)
    : view(from), image(from.size, QImage::Format_RGB32),
      depths(static_cast<std::size_t>(from.size.width()) * static_cast<std::size_t>(from.size.height()),
             -1e9F),
      shown(depths.size(), 0) {
    const float a = radians(view.azimuth);
    const float e = radians(view.elevation);
    right = {-std::sin(a), std::cos(a), 0};
    up = {-std::sin(e) * std::cos(a), -std::sin(e) * std::sin(a), std::cos(e)};
    toViewer = {std::cos(e) * std::cos(a), std::cos(e) * std::sin(a), std::sin(e)};
    image.fill(view.ground);
}

FigurePainter::Corner FigurePainter::project(const Vec3 &position) const {
    const Vec3 off{position.x - view.centre.x, position.y - view.centre.y, position.z - view.centre.z};
    return {0.5F * static_cast<float>(view.size.width()) + view.scale * dot(off, right),
            0.5F * static_cast<float>(view.size.height()) - view.scale * dot(off, up), dot(off, toViewer), 0,
            0};
}

std::size_t FigurePainter::add(const Md2Content &model, std::size_t frame, const QImage &skin) {
    const std::vector<Md2Vertex> &vertices = model.frames[frame].vertices;
    const std::vector<std::int32_t> &words = model.glCommands;
    std::size_t triangles = 0;
    for (std::size_t at = 0; words[at] != 0;) {
        const bool fan = words[at] < 0;
        const auto count = static_cast<std::size_t>(std::abs(words[at++]));
        std::vector<Corner> run;
        for (std::size_t i = 0; i < count; ++i, at += 3) {
            Corner &corner =
                run.emplace_back(project(vertices[static_cast<std::size_t>(words[at + 2])].position));
            corner.s = std::bit_cast<float>(words[at]);
            corner.t = std::bit_cast<float>(words[at + 1]);
        }
        for (std::size_t i = 2; i < count; ++i, ++triangles) {
            const bool turned = !fan && i % 2 == 1;
            fill({run[fan ? 0 : i - (turned ? 1 : 2)], run[i - (turned ? 2 : 1)], run[i]}, skin);
        }
    }
    return triangles;
}

void FigurePainter::fill(std::array<Corner, 3> corners, const QImage &skin) {
    auto &[a, b, c] = corners;
    // Rows of a picture run down, so what turns counter-clockwise has a negative area here.
    const float area = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    if (std::abs(area) < 1e-6F)
        return;
    const bool inside = area > 0;
    const float slopeX = ((b.depth - a.depth) * (c.y - a.y) - (c.depth - a.depth) * (b.y - a.y)) / area;
    const float slopeY = ((c.depth - a.depth) * (b.x - a.x) - (b.depth - a.depth) * (c.x - a.x)) / area;
    const float light =
        1.0F / std::sqrt(1.0F + view.scale * view.scale * (slopeX * slopeX + slopeY * slopeY));
    const auto grey = static_cast<int>(60 + 180 * light);
    const auto pixel = [](float value) { return static_cast<int>(std::floor(value)); };
    const int left = std::max(0, pixel(std::min({a.x, b.x, c.x})));
    const int last = std::min(view.size.width() - 1, pixel(std::max({a.x, b.x, c.x})));
    const int top = std::max(0, pixel(std::min({a.y, b.y, c.y})));
    const int bottom = std::min(view.size.height() - 1, pixel(std::max({a.y, b.y, c.y})));
    for (int row = top; row <= bottom; ++row) {
        for (int column = left; column <= last; ++column) {
            const float x = static_cast<float>(column) + 0.5F - a.x;
            const float y = static_cast<float>(row) + 0.5F - a.y;
            const float second = (x * (c.y - a.y) - y * (c.x - a.x)) / area;
            const float third = (y * (b.x - a.x) - x * (b.y - a.y)) / area;
            if (second < 0 || third < 0 || second + third > 1)
                continue;
            const std::size_t at = index(column, row);
            // Where an outside and an inside meet in an edge, the outside is seen.
            const float depth = a.depth + x * slopeX + y * slopeY - (inside ? 1e-3F : 0.0F);
            if (depth <= depths[at])
                continue;
            depths[at] = depth;
            shown[at] = inside ? -1 : 1;
            QRgb colour = inside ? insideColour : qRgb(grey, grey, grey);
            if (!inside && !skin.isNull()) {
                const float s = a.s + second * (b.s - a.s) + third * (c.s - a.s);
                const float t = a.t + second * (b.t - a.t) + third * (c.t - a.t);
                colour = skin.pixel(
                    std::clamp(pixel(s * static_cast<float>(skin.width())), 0, skin.width() - 1),
                    std::clamp(pixel(t * static_cast<float>(skin.height())), 0, skin.height() - 1));
            }
            image.setPixel(column, row, colour);
        }
    }
}

long FigurePainter::covered() const {
    return static_cast<long>(shown.size()) - static_cast<long>(std::count(shown.begin(), shown.end(), 0));
}

double FigurePainter::insideShare() const {
    return static_cast<double>(std::count(shown.begin(), shown.end(), -1)) /
           static_cast<double>(std::max(1L, covered()));
}

Wholeness wholeness(const Md2Content &model, const std::vector<std::size_t> &frames) {
    Wholeness result;
    for (const std::size_t frame : frames) {
        FigureView view;
        Vec3 low{1e9F, 1e9F, 1e9F};
        Vec3 high{-1e9F, -1e9F, -1e9F};
        for (const Md2Vertex &vertex : model.frames[frame].vertices) {
            const Vec3 &p = vertex.position;
            low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
        }
        view.centre = {0.5F * (low.x + high.x), 0.5F * (low.y + high.y), 0.5F * (low.z + high.z)};
        view.size = QSize(240, 240);
        view.scale = 236.0F / std::hypot(high.x - low.x, high.y - low.y, high.z - low.z);
        for (const float elevation : {-30.0F, 0.0F, 25.0F, 55.0F}) {
            for (int turn = 0; turn < 18; ++turn) {
                view.elevation = elevation;
                view.azimuth = static_cast<float>(turn) * 20.0F;
                FigurePainter painter(view);
                painter.add(model, frame);
                const double share = painter.insideShare();
                result.mean += share / static_cast<double>(72 * frames.size());
                if (share > result.worst) {
                    result.worst = share;
                    result.worstView = view;
                    result.worstFrame = frame;
                }
            }
        }
    }
    return result;
}

float meanExcursion(const Md2Content &model, std::size_t firstFrame, std::size_t frameCount) {
    const std::vector<Md2Vertex> &start = model.frames[firstFrame].vertices;
    double sum = 0;
    for (std::size_t i = 0; i < start.size(); ++i) {
        float farthest = 0;
        for (std::size_t frame = firstFrame; frame < firstFrame + frameCount; ++frame) {
            const Vec3 &there = model.frames[frame].vertices[i].position;
            const Vec3 &here = start[i].position;
            farthest = std::max(farthest, std::hypot(there.x - here.x, there.y - here.y, there.z - here.z));
        }
        sum += static_cast<double>(farthest);
    }
    return static_cast<float>(sum / static_cast<double>(std::max<std::size_t>(1, start.size())));
}
