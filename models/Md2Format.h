#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// The records of a model file, laid out as they lie in it. Numbers are little-endian; offsets are
// bytes from the start of the file.

inline constexpr std::array<char, 4> md2Ident{'I', 'D', 'P', '2'};
inline constexpr std::int32_t md2Version = 8;
inline constexpr std::size_t md2NormalCount = 162;
inline constexpr std::size_t md2SkinNameSize = 64; ///< A skin record: text, padded with zero bytes.

struct Md2Header {
    std::array<char, 4> ident{};
    std::int32_t version = 0;
    std::int32_t skinWidth = 0; ///< Texels.
    std::int32_t skinHeight = 0;
    std::int32_t frameSize = 0; ///< Bytes of one frame with its vertices.
    std::int32_t skinCount = 0;
    std::int32_t vertexCount = 0; ///< Of each frame.
    std::int32_t texCoordCount = 0;
    std::int32_t triangleCount = 0;
    std::int32_t glCommandCount = 0; ///< 32-bit words.
    std::int32_t frameCount = 0;
    std::int32_t skinOffset = 0;
    std::int32_t texCoordOffset = 0;
    std::int32_t triangleOffset = 0;
    std::int32_t frameOffset = 0;
    std::int32_t glCommandOffset = 0;
    std::int32_t endOffset = 0;
};
static_assert(sizeof(Md2Header) == 68);

struct Md2TexCoord {
    std::int16_t s = 0; ///< Texels from the skin's left and top edge.
    std::int16_t t = 0;
};
static_assert(sizeof(Md2TexCoord) == 4);

struct Md2Triangle {
    std::array<std::uint16_t, 3> vertices{};
    std::array<std::uint16_t, 3> texCoords{};
};
static_assert(sizeof(Md2Triangle) == 12);

/// A vertex packed into a frame's box: a coordinate is byte × scale + translate.
struct Md2PackedVertex {
    std::uint8_t x = 0;
    std::uint8_t y = 0;
    std::uint8_t z = 0;
    std::uint8_t normal = 0; ///< Below md2NormalCount.
};
static_assert(sizeof(Md2PackedVertex) == 4);

/// What a frame begins with; its vertices follow.
struct Md2FrameHeader {
    std::array<float, 3> scale{};
    std::array<float, 3> translate{};
    std::array<char, 16> name{}; ///< Padded with zero bytes.
};
static_assert(sizeof(Md2FrameHeader) == 40);

// GL commands are runs of 32-bit words: a count (above 0 for a triangle strip, below 0 for a fan,
// 0 at the end), then three words per vertex: s and t as floats, and the vertex's index.
inline constexpr std::size_t md2WordsPerCommandVertex = 3;
