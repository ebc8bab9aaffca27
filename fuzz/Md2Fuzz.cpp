// Any bytes at all as a model file: what passes the check must decode to lists that can be drawn.

#include "models/Md2Decoder.h"

#include <bit>
#include <cmath>
#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool isFinite(const Vec3 &v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

/// Walks the commands as drawing does.
void requireDrawable(const Md2Content &content, std::int64_t vertexCount) {
    for (const Md2Frame &frame : content.frames) {
        require(static_cast<std::int64_t>(frame.vertices.size()) == vertexCount && frame.name.size() <= 16);
        for (const Md2Vertex &vertex : frame.vertices) {
            require(isFinite(vertex.position) && isFinite(vertex.normal));
        }
    }
    const std::vector<std::int32_t> &words = content.glCommands;
    for (std::size_t at = 0; at < words.size() && words[at] != 0;) {
        for (std::int64_t i = std::abs(std::int64_t{words[at++]}); i > 0; --i, at += 3) {
            require(at + 2 < words.size() && words[at + 2] >= 0 && words[at + 2] < vertexCount);
            require(std::isfinite(std::bit_cast<float>(words[at])));
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Md2Decoder decoder(QByteArrayView(data, static_cast<qsizetype>(size)));
    if (decoder.check()) {
        Md2Content content;
        decoder.decode(content);
        requireDrawable(content, decoder.header.vertexCount);
    }
    return 0;
}
