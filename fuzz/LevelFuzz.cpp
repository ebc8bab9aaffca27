#include "scene/LevelFile.h"
#include "tests/support/levelBytes.h"

#include <QLoggingCategory>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    QLoggingCategory::setFilterRules(QStringLiteral("druvelk.*=false"));
    return 0;
}

/// Whatever the bytes are, what is saved of them can be read, and saves the same again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    LevelDocument level;
    readLevel(level, QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    const QByteArray saved = levelBytes(level);
    LevelDocument again;
    if (!readLevel(again, saved) || levelBytes(again) != saved) {
        std::fprintf(stderr, "not stable:\n%.2000s\n", saved.constData());
        std::abort();
    }
    return 0;
}
