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

Md2FrameHeader frameHeader(const char *record) {
    Md2FrameHeader box;
    std::memcpy(&box, record, sizeof box);
    qFromLittleEndian<float>(&box.scale, 3, &box.scale);
    qFromLittleEndian<float>(&box.translate, 3, &box.translate);
    return box;
}

Md2PackedVertex packedVertex(const char *bytes) {
    Md2PackedVertex vertex;
    std::memcpy(&vertex, bytes, sizeof vertex);
    return vertex;
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

/// Turns packed vertices into positions and normals. y changes sign: the file's axes are of the
/// other handedness.
void unpack(const Md2FrameHeader &box, const char *packed, std::vector<Md2Vertex> &vertices) {
    const auto [sx, sy, sz] = box.scale;
    const auto [tx, ty, tz] = box.translate;
    for (Md2Vertex &vertex : vertices) {
        const Md2PackedVertex from = packedVertex(packed);
        packed += sizeof from;
        const Vec3 &normal = md2Normals[from.normal];
        // In double, so that each coordinate is rounded to float once.
        vertex = {{static_cast<float>(from.x * double{sx} + tx),
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

/// Whether a list lies behind the header and inside the file. An empty one lies anywhere.
bool Md2Decoder::isInside(std::int32_t offset, std::int32_t count, std::uint64_t recordSize) const {
    const auto size = static_cast<std::uint64_t>(file_.size());
    const auto start = static_cast<std::uint64_t>(offset);
    return count == 0 || (count > 0 && offset >= static_cast<std::int32_t>(sizeof(Md2Header)) &&
                          start <= size && static_cast<std::uint64_t>(count) <= (size - start) / recordSize);
}

/// The bytes from an offset on; that of an empty list may be anything.
const char *Md2Decoder::at(std::int32_t offset) const {
    return file_.data() + std::clamp<qsizetype>(offset, 0, file_.size());
}

std::size_t Md2Decoder::frameSize() const {
    return sizeof(Md2FrameHeader) + static_cast<std::size_t>(header.vertexCount) * sizeof(Md2PackedVertex);
}

std::int32_t Md2Decoder::commandWord(std::size_t index) const {
    return qFromLittleEndian<qint32>(at(header.glCommandOffset) + index * sizeof(qint32));
}

bool Md2Decoder::checkHeader() {
    header = {};
    if (!file_.isEmpty()) {
        std::memcpy(&header, file_.data(), std::min(sizeof header, static_cast<std::size_t>(file_.size())));
    }
    auto *numbers = reinterpret_cast<char *>(&header) + md2Ident.size();
    qFromLittleEndian<qint32>(numbers, (sizeof header - md2Ident.size()) / sizeof(qint32), numbers);
    if (file_.size() < static_cast<qsizetype>(sizeof header)) {
        return fail("it is shorter than a header");
    }
    return (header.ident == md2Ident && header.version == md2Version) ||
           fail("it is not of this format and version");
}

bool Md2Decoder::checkFrames() {
    const char *record = at(header.frameOffset);
    for (std::int32_t frame = 0; frame < header.frameCount; ++frame) {
        if (!isFiniteBox(frameHeader(record))) {
            return fail("a frame has coordinates that are not finite");
        }
        record += sizeof(Md2FrameHeader);
        for (std::int32_t i = 0; i < header.vertexCount; ++i, record += sizeof(Md2PackedVertex)) {
            if (packedVertex(record).normal >= md2NormalCount) {
                return fail("a vertex has a normal that is not in the table");
            }
        }
    }
    return true;
}

bool Md2Decoder::checkGLCommands() {
    const auto words = static_cast<std::size_t>(header.glCommandCount);
    std::size_t word = 0;
    while (word < words && commandWord(word) != 0) {
        const auto length = static_cast<std::uint64_t>(std::abs(std::int64_t{commandWord(word++)}));
        if (length > (words - word) / md2WordsPerCommandVertex) {
            return fail("a run of the GL commands is longer than their list");
        }
        if (!checkRun(word, length)) {
            return false;
        }
        word += length * md2WordsPerCommandVertex;
    }
    return true;
}

bool Md2Decoder::checkRun(std::size_t word, std::uint64_t length) {
    for (std::uint64_t i = 0; i < length; ++i, word += md2WordsPerCommandVertex) {
        if (!std::isfinite(std::bit_cast<float>(commandWord(word))) ||
            !std::isfinite(std::bit_cast<float>(commandWord(word + 1)))) {
            return fail("a GL command has a texture coordinate that is not finite");
        }
        const std::int32_t index = commandWord(word + 2);
        if (index < 0 || index >= header.vertexCount) {
            return fail("a GL command names a vertex that is not there");
        }
    }
    return true;
}

bool Md2Decoder::check() {
    if (!checkHeader()) {
        return false;
    }
    if (header.vertexCount < 0 || !isInside(header.skinOffset, header.skinCount, md2SkinNameSize) ||
        !isInside(header.texCoordOffset, header.texCoordCount, sizeof(Md2TexCoord)) ||
        !isInside(header.triangleOffset, header.triangleCount, sizeof(Md2Triangle)) ||
        !isInside(header.frameOffset, header.frameCount, frameSize()) ||
        !isInside(header.glCommandOffset, header.glCommandCount, sizeof(std::int32_t))) {
        return fail("a list leaves the file");
    }
    return checkFrames() && checkGLCommands();
}

/// Copies records that are made of words of one size.
template <typename Word, typename Record>
void Md2Decoder::copyRecords(std::int32_t offset, std::int32_t count, std::vector<Record> &records) const {
    records.resize(static_cast<std::size_t>(count));
    if (count > 0) {
        constexpr auto wordsPerRecord = static_cast<qsizetype>(sizeof(Record)) / qsizetype{sizeof(Word)};
        qFromLittleEndian<Word>(at(offset), count * wordsPerRecord, records.data());
    }
}

// The lists keep their memory, so that loading the next model of the same size allocates nothing.
void Md2Decoder::decode(Md2Content &content) const {
    content.skinNames.resize(static_cast<std::size_t>(header.skinCount));
    const char *name = at(header.skinOffset);
    for (std::string &skinName : content.skinNames) {
        skinName = fieldText(name, md2SkinNameSize);
        name += md2SkinNameSize;
    }
    copyRecords<qint16>(header.texCoordOffset, header.texCoordCount, content.texCoords);
    copyRecords<quint16>(header.triangleOffset, header.triangleCount, content.triangles);
    content.frames.resize(static_cast<std::size_t>(header.frameCount));
    const char *record = at(header.frameOffset);
    for (Md2Frame &frame : content.frames) {
        const Md2FrameHeader box = frameHeader(record);
        frame.name = fieldText(box.name.data(), box.name.size());
        frame.vertices.resize(static_cast<std::size_t>(header.vertexCount));
        unpack(box, record + sizeof box, frame.vertices);
        record += frameSize();
    }
    copyRecords<qint32>(header.glCommandOffset, header.glCommandCount, content.glCommands);
}
