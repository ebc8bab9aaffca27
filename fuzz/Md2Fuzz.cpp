// Any bytes at all as a model file: what passes the check must decode to lists that can be drawn.

#include "models/Md2Decoder.h"
#include "tests/models/Md2Checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    Md2Decoder decoder(bytes);
    if (decoder.check()) {
        Md2Content content;
        decoder.decode(content);
        if (!listsLieInside(bytes) || !isDrawable(content, decoder.header.vertexCount)) {
            std::abort();
        }
    }
    return 0;
}
