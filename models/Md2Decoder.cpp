#include "models/Md2Decoder.h"

#include "models/Md2Normals.h"

#include <QtEndian>
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace {

/// Models stand this far above the origin of their file.
constexpr double lift = 24.0;

/// The text of a field up to its first zero byte, or all of it.
std::string fieldText(const char *field, std::size_t width) {
    return {field, std::find(field, field + width, '\0')};
}

/// Whether every byte value decodes to a finite number; it does when the smallest and the largest do.
bool isFiniteBox(const Md2FrameHeader &box) {
    for (std::size_t axis = 0; axis < box.scale.size(); ++axis) {
        const double low = box.translate[axis];
        const double high = 255.0 * double{box.scale[axis]} + low;
        if (!std::isfinite(static_cast<float>(low + lift)) ||
            !std::isfinite(static_cast<float>(high + lift))) {
            return false;
        }
    }
    return true;
}

/// Turns the packed vertices of a frame into positions and normals. y changes sign: the file's
/// axes are of the other handedness.
void unpack(const Md2FrameHeader &box, const std::vector<Md2PackedVertex> &packed,
            std::vector<Md2Vertex> &vertices) {
    const auto [sx, sy, sz] = box.scale;
    const auto [tx, ty, tz] = box.translate;
    vertices.resize(packed.size());
    for (std::size_t i = 0; i < packed.size(); ++i) {
        const Md2PackedVertex from = packed[i];
        const Vec3 &normal = md2Normals[from.normal];
        // In double, so that each coordinate is rounded to float once.
        vertices[i] = {{static_cast<float>(from.x * double{sx} + tx),
                        static_cast<float>(-(from.y * double{sy} + ty)),
                        static_cast<float>(from.z * double{sz} + tz + lift)},
                       {normal.x, -normal.y, normal.z}};
    }
}

} // namespace

Md2Decoder::Md2Decoder(QByteArrayView file) : file_(file) {}

bool Md2Decoder::fail(const char *reason) {
    problem = reason;
    return false;
}

/// The bytes of a list, or null where they do not all lie behind the header and inside the file.
/// An empty list lies anywhere.
const char *Md2Decoder::section(std::int32_t offset, std::int32_t count, std::uint64_t recordSize) {
    if (count == 0) {
        return file_.data();
    }
    const auto size = static_cast<std::uint64_t>(file_.size());
    const auto start = static_cast<std::uint64_t>(offset);
    if (offset < static_cast<std::int32_t>(sizeof(Md2Header)) || start > size || count < 0 ||
        static_cast<std::uint64_t>(count) > (size - start) / recordSize) {
        return nullptr;
    }
    return file_.data() + offset;
}

bool Md2Decoder::readHeader() {
    header = {};
    std::memcpy(&header, file_.data(), std::min(sizeof header, static_cast<std::size_t>(file_.size())));
    auto *numbers = reinterpret_cast<char *>(&header) + md2Ident.size();
    qFromLittleEndian<qint32>(numbers, (sizeof header - md2Ident.size()) / sizeof(qint32), numbers);
    if (file_.size() < static_cast<qsizetype>(sizeof header)) {
        return fail("it is shorter than a header");
    }
    return (header.ident == md2Ident && header.version == md2Version) ||
           fail("it is not of this format and version");
}

bool Md2Decoder::readSkinNames() {
    const char *names = section(header.skinOffset, header.skinCount, md2SkinNameSize);
    if (names == nullptr) {
        return fail("the skin names leave the file");
    }
    content.skinNames.reserve(static_cast<std::size_t>(header.skinCount));
    for (std::int32_t i = 0; i < header.skinCount; ++i, names += md2SkinNameSize) {
        content.skinNames.push_back(fieldText(names, md2SkinNameSize));
    }
    return true;
}

/// Reads records that are made of words of one size.
template <typename Record, typename Word>
bool Md2Decoder::readRecords(std::int32_t offset, std::int32_t count, std::vector<Record> &records) {
    const char *bytes = section(offset, count, sizeof(Record));
    if (bytes == nullptr) {
        return fail("a list leaves the file");
    }
    if (count == 0) {
        return true;
    }
    records.resize(static_cast<std::size_t>(count));
    qFromLittleEndian<Word>(bytes, count * static_cast<qsizetype>(sizeof(Record) / sizeof(Word)),
                            records.data());
    return true;
}

bool Md2Decoder::readFrames() {
    if (header.vertexCount < 0) {
        return fail("its frames have a negative number of vertices");
    }
    const std::uint64_t frameSize =
        sizeof(Md2FrameHeader) + static_cast<std::uint64_t>(header.vertexCount) * sizeof(Md2PackedVertex);
    const char *record = section(header.frameOffset, header.frameCount, frameSize);
    if (record == nullptr) {
        return fail("the frames leave the file");
    }
    content.frames.resize(static_cast<std::size_t>(header.frameCount));
    for (Md2Frame &frame : content.frames) {
        if (!readFrame(record, frame)) {
            return false;
        }
        record += frameSize;
    }
    return true;
}

bool Md2Decoder::readFrame(const char *record, Md2Frame &frame) {
    Md2FrameHeader box;
    std::memcpy(&box, record, sizeof box);
    qFromLittleEndian<float>(&box.scale, 3, &box.scale);
    qFromLittleEndian<float>(&box.translate, 3, &box.translate);
    if (!isFiniteBox(box)) {
        return fail("a frame has coordinates that are not finite");
    }
    frame.name = fieldText(box.name.data(), box.name.size());

    std::vector<Md2PackedVertex> packed(static_cast<std::size_t>(header.vertexCount));
    if (!packed.empty()) {
        std::memcpy(packed.data(), record + sizeof box, packed.size() * sizeof(Md2PackedVertex));
    }
    if (std::any_of(packed.begin(), packed.end(),
                    [](Md2PackedVertex vertex) { return vertex.normal >= md2NormalCount; })) {
        return fail("a vertex has a normal that is not in the table");
    }
    unpack(box, packed, frame.vertices);
    return true;
}

bool Md2Decoder::readGLCommands() {
    std::vector<std::int32_t> &words = content.glCommands;
    if (!readRecords<std::int32_t, qint32>(header.glCommandOffset, header.glCommandCount, words)) {
        return false;
    }
    std::size_t at = 0;
    while (at < words.size() && words[at] != 0) {
        const auto run = static_cast<std::uint64_t>(std::abs(std::int64_t{words[at++]}));
        if (run > (words.size() - at) / md2WordsPerCommandVertex) {
            return fail("a run of the GL commands is longer than their list");
        }
        for (std::uint64_t i = 0; i < run; ++i, at += md2WordsPerCommandVertex) {
            if (!std::isfinite(std::bit_cast<float>(words[at])) ||
                !std::isfinite(std::bit_cast<float>(words[at + 1]))) {
                return fail("a GL command has a texture coordinate that is not finite");
            }
            if (words[at + 2] < 0 || words[at + 2] >= header.vertexCount) {
                return fail("a GL command names a vertex that is not there");
            }
        }
    }
    return true;
}

bool Md2Decoder::decode() {
    content = {};
    return readHeader() && readSkinNames() &&
           readRecords<Md2TexCoord, qint16>(header.texCoordOffset, header.texCoordCount, content.texCoords) &&
           readRecords<Md2Triangle, quint16>(header.triangleOffset, header.triangleCount,
                                             content.triangles) &&
           readFrames() && readGLCommands();
}
