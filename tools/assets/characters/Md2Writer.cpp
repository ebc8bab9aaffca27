#include "tools/assets/characters/Md2Writer.h"

#include "models/Md2Format.h"
#include "models/Md2Normals.h"
#include "tools/assets/characters/Runs.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>

namespace {

/// The box the frames of an animation are packed into. One for all of them: with a box of its own each
/// frame would round differently, and still parts would tremble.
struct Box {
    glm::vec3 low{1e9f};
    glm::vec3 high{-1e9f};

    glm::vec3 scale() const { return (high - low) / 255.0f; }
};

glm::vec3 asStored(const glm::vec3 &seen) {
    return {seen.x, -seen.y, seen.z - 24.0f};
}

/// "stand" of "stand07".
std::string animationOf(const ModelFrame &frame) {
    return frame.name.substr(0, frame.name.find_first_of("0123456789"));
}

std::map<std::string, Box> boxesOf(const std::vector<ModelFrame> &frames) {
    std::map<std::string, Box> boxes;
    for (const ModelFrame &frame : frames) {
        Box &box = boxes[animationOf(frame)];
        for (const glm::vec3 &vertex : frame.vertices) {
            box.low = glm::min(box.low, asStored(vertex));
            box.high = glm::max(box.high, asStored(vertex));
        }
    }
    return boxes;
}

std::uint8_t nearestNormal(const glm::vec3 &stored) {
    std::size_t best = 0;
    float highest = -2.0f;
    for (std::size_t i = 0; i < md2Normals.size(); ++i) {
        const auto &normal = md2Normals[i];
        const float agreement = glm::dot(stored, glm::vec3(normal.x, normal.y, normal.z));
        if (agreement > highest) {
            highest = agreement;
            best = i;
        }
    }
    return static_cast<std::uint8_t>(best);
}

std::vector<glm::vec3> vertexNormals(const Mesh &mesh, const std::vector<glm::vec3> &frame) {
    std::vector<glm::vec3> normals(frame.size(), glm::vec3(0.0f));
    for (const MeshFace &face : mesh.faces) {
        const glm::vec3 a = frame[face.vertex[0]];
        const glm::vec3 facing = glm::cross(frame[face.vertex[1]] - a, frame[face.vertex[2]] - a);
        for (const unsigned vertex : face.vertex)
            normals[vertex] += facing;
    }
    return normals;
}

template <typename Record>
void append(QByteArray &bytes, const Record &record) {
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN);
    bytes.append(reinterpret_cast<const char *>(&record), static_cast<qsizetype>(sizeof record));
}

void appendFrame(QByteArray &bytes, const Mesh &mesh, const ModelFrame &named, const Box &box) {
    const std::vector<glm::vec3> &frame = named.vertices;
    Md2FrameHeader header;
    const glm::vec3 scale = box.scale();
    for (glm::length_t axis = 0; axis < 3; ++axis) {
        header.scale[static_cast<std::size_t>(axis)] = scale[axis];
        header.translate[static_cast<std::size_t>(axis)] = box.low[axis];
    }
    std::copy(named.name.begin(), named.name.end(), header.name.begin());
    append(bytes, header);
    const auto normals = vertexNormals(mesh, frame);
    const auto byte = [](float value) {
        return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
    };
    for (std::size_t i = 0; i < frame.size(); ++i) {
        const glm::vec3 steps = (asStored(frame[i]) - box.low) / scale;
        const glm::vec3 normal(normals[i].x, -normals[i].y, normals[i].z);
        append(bytes, Md2PackedVertex{byte(steps.x), byte(steps.y), byte(steps.z), nearestNormal(normal)});
    }
}

QByteArray commandBytes(const Mesh &mesh) {
    QByteArray bytes;
    for (const Run &run : runsOf(mesh)) {
        const auto size = static_cast<std::int32_t>(run.corners.size());
        append(bytes, run.fan ? -size : size);
        for (const RunCorner &corner : run.corners) {
            const glm::vec2 texel = glm::vec2(mesh.texels[corner.texel]) / static_cast<float>(skinSize);
            append(bytes, texel.x);
            append(bytes, texel.y);
            append(bytes, static_cast<std::int32_t>(corner.vertex));
        }
    }
    append(bytes, std::int32_t{0});
    return bytes;
}

QByteArray texelBytes(const Mesh &mesh) {
    QByteArray bytes;
    for (const glm::ivec2 &texel : mesh.texels)
        append(bytes, Md2TexCoord{static_cast<std::int16_t>(texel.x), static_cast<std::int16_t>(texel.y)});
    return bytes;
}

QByteArray triangleBytes(const Mesh &mesh) {
    QByteArray bytes;
    for (const MeshFace &face : mesh.faces) {
        Md2Triangle triangle;
        for (std::size_t i = 0; i < 3; ++i) {
            triangle.vertices[i] = static_cast<std::uint16_t>(face.vertex[i]);
            triangle.texCoords[i] = static_cast<std::uint16_t>(face.texel[i]);
        }
        append(bytes, triangle);
    }
    return bytes;
}

std::int32_t count(std::size_t value) {
    return static_cast<std::int32_t>(value);
}
std::int32_t count(qsizetype value) {
    return static_cast<std::int32_t>(value);
}

} // namespace

QByteArray modelFile(const Mesh &mesh, const std::vector<ModelFrame> &frames) {
    const QByteArray texels = texelBytes(mesh);
    const QByteArray triangles = triangleBytes(mesh);
    const QByteArray commands = commandBytes(mesh);
    QByteArray packed;
    const std::map<std::string, Box> boxes = boxesOf(frames);
    for (const ModelFrame &frame : frames)
        appendFrame(packed, mesh, frame, boxes.at(animationOf(frame)));

    Md2Header header;
    header.ident = md2Ident;
    header.version = md2Version;
    header.skinWidth = header.skinHeight = static_cast<std::int32_t>(skinSize);
    header.frameSize = count(packed.size()) / count(frames.size());
    header.vertexCount = count(mesh.vertices.size());
    header.texCoordCount = count(mesh.texels.size());
    header.triangleCount = count(mesh.faces.size());
    header.glCommandCount = count(commands.size()) / 4;
    header.frameCount = count(frames.size());
    header.skinOffset = header.texCoordOffset = static_cast<std::int32_t>(sizeof header);
    header.triangleOffset = header.texCoordOffset + count(texels.size());
    header.frameOffset = header.triangleOffset + count(triangles.size());
    header.glCommandOffset = header.frameOffset + count(packed.size());
    header.endOffset = header.glCommandOffset + count(commands.size());

    QByteArray bytes;
    append(bytes, header);
    return bytes + texels + triangles + packed + commands;
}
