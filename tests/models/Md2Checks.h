#pragma once

#include "models/Md2Content.h"
#include "tests/models/Md2Builder.h"

#include <QDataStream>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

/// Whether all lists of a model file lie behind its header and inside of it, in numbers that do not wrap.
inline bool listsLieInside(const QByteArray &bytes) {
    using B = Md2Builder;
    std::array<qint32, sizeof(Md2Header) / 4> header{};
    QDataStream in(bytes);
    in.setByteOrder(QDataStream::LittleEndian);
    for (qint32 &value : header) {
        in >> value;
    }
    const auto number = [&](int at) { return double(header.at(std::size_t(at) / 4)); };
    const auto isInside = [&](int count, int place, double size) {
        return number(count) == 0 || (number(count) > 0 && number(place) >= double(sizeof(Md2Header)) &&
                                      number(place) + number(count) * size <= double(bytes.size()));
    };
    return number(B::Vertices) >= 0 && isInside(B::Skins, B::SkinsAt, 64) &&
           isInside(B::TexCoords, B::TexCoordsAt, 4) && isInside(B::Triangles, B::TrianglesAt, 12) &&
           isInside(B::Frames, B::FramesAt, 40 + 4 * number(B::Vertices)) &&
           isInside(B::Words, B::WordsAt, 4);
}

/// Whether what was read can be drawn: walks the commands as drawing does.
inline bool isDrawable(const Md2Content &content, std::int64_t vertexCount) {
    for (const Md2Frame &frame : content.frames) {
        const auto isSound = [](const Md2Vertex &vertex) {
            const auto &[x, y, z] = vertex.position;
            const Vec3 &normal = vertex.normal;
            return std::isfinite(x) && std::isfinite(y) && std::isfinite(z) &&
                   std::abs(std::hypot(normal.x, normal.y, normal.z) - 1) < 1e-3F;
        };
        if (std::int64_t(frame.vertices.size()) != vertexCount ||
            !std::all_of(frame.vertices.begin(), frame.vertices.end(), isSound)) {
            return false;
        }
    }
    const std::vector<std::int32_t> &words = content.glCommands;
    for (std::size_t at = 0; at < words.size() && words[at] != 0;) {
        for (std::int64_t i = std::abs(std::int64_t{words[at++]}); i > 0; --i, at += 3) {
            if (at + 2 >= words.size() || words[at + 2] < 0 || words[at + 2] >= vertexCount ||
                !std::isfinite(std::bit_cast<float>(words[at])) ||
                !std::isfinite(std::bit_cast<float>(words[at + 1]))) {
                return false;
            }
        }
    }
    return true;
}
