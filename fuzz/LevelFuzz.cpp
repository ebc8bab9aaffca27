#include "scene/LevelDocument.h"

#include <QBuffer>
#include <QLoggingCategory>
#include <QTextStream>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

bool read(LevelDocument &level, QByteArray bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return level.read(buffer);
}

QByteArray written(const LevelDocument &level) {
    QByteArray bytes;
    QTextStream out(&bytes);
    level.write(out);
    out.flush();
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    QLoggingCategory::setFilterRules(QStringLiteral("druvelk.*=false"));
    return 0;
}

/// Whatever the bytes are, what is saved of them can be read, and saves the same again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    LevelDocument level;
    read(level, QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    const QByteArray saved = written(level);
    LevelDocument again;
    if (!read(again, saved) || written(again) != saved) {
        std::fprintf(stderr, "not stable:\n%.2000s\n", saved.constData());
        std::abort();
    }
    return 0;
}
