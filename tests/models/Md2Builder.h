#pragma once

#include "models/Md2Format.h"
#include "tests/support/files.h"

#include <bit>
#include <initializer_list>
#include <vector>

inline void append32(QByteArray &bytes, std::uint32_t word) {
    for (int shift = 0; shift < 32; shift += 8) {
        bytes += static_cast<char>(word >> shift & 0xFFU);
    }
}

inline void append16(QByteArray &bytes, std::uint32_t word) {
    bytes += static_cast<char>(word & 0xFFU);
    bytes += static_cast<char>(word >> 8U & 0xFFU);
}

inline void appendFloat(QByteArray &bytes, float number) {
    append32(bytes, std::bit_cast<std::uint32_t>(number));
}

inline void patch32(QByteArray &bytes, qsizetype at, std::uint32_t word) {
    QByteArray four;
    append32(four, word);
    bytes.replace(at, 4, four);
}

/// Puts a model file together byte by byte.
struct Md2Builder {
    /// Places of numbers in the header.
    enum Field {
        Version = 4,
        Skins = 20,
        Vertices = 24,
        TexCoords = 28,
        Triangles = 32,
        Words = 36,
        Frames = 40,
        SkinsAt = 44,
        TexCoordsAt = 48,
        TrianglesAt = 52,
        FramesAt = 56,
        WordsAt = 60
    };

    QByteArray skins;     ///< 64 bytes each.
    QByteArray texCoords; ///< 4 bytes each.
    QByteArray triangles; ///< 12 bytes each.
    QByteArray frames;
    QByteArray words;
    std::uint32_t vertexCount = 0;
    std::uint32_t frameCount = 0;

    void addTriangle(std::initializer_list<std::uint32_t> indices) {
        for (const std::uint32_t index : indices) {
            append16(triangles, index);
        }
    }

    /// `vertices` holds four bytes per vertex: x, y, z, normal.
    void addFrame(std::array<float, 3> scale, std::array<float, 3> translate, QByteArray name,
                  const std::vector<std::uint8_t> &vertices) {
        for (const auto &box : {scale, translate}) {
            for (const float number : box) {
                appendFloat(frames, number);
            }
        }
        frames += name.leftJustified(16, '\0', true);
        frames.append(reinterpret_cast<const char *>(vertices.data()),
                      static_cast<qsizetype>(vertices.size()));
        vertexCount = static_cast<std::uint32_t>(vertices.size() / 4);
        ++frameCount;
    }

    void addRun(int count) { append32(words, static_cast<std::uint32_t>(count)); }
    void addVertex(float s, float t, int index) {
        appendFloat(words, s);
        appendFloat(words, t);
        append32(words, static_cast<std::uint32_t>(index));
    }

    QByteArray bytes() const {
        QByteArray file("IDP2");
        const auto count = [](const QByteArray &list, qsizetype size) {
            return static_cast<std::uint32_t>(list.size() / size);
        };
        for (const std::uint32_t number :
             {8U, 64U, 32U, 40 + 4 * vertexCount, count(skins, 64), vertexCount, count(texCoords, 4),
              count(triangles, 12), count(words, 4), frameCount}) {
            append32(file, number);
        }
        std::uint32_t offset = sizeof(Md2Header);
        for (const QByteArray *list : {&skins, &texCoords, &triangles, &frames, &words}) {
            append32(file, offset);
            offset += count(*list, 1);
        }
        append32(file, offset);
        return file + skins + texCoords + triangles + frames + words;
    }
};
