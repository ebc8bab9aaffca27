#include "tools/levels/SampleLevels.h"

#include <QDir>
#include <QFile>
#include <QTextStream>
#include <cstdio>

namespace {

/// Writes a level where there is none. False where it cannot be written.
bool writeIfMissing(const SampleLevel &sample, const QDir &workspace) {
    const QString path = workspace.filePath(QLatin1String(sample.fileName));
    if (QFile::exists(path)) {
        return true;
    }
    LevelDocument level;
    level.complete();
    sample.make(level);
    QFile file(path);
    // NewOnly: a level that appeared in the meantime stays.
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        return false;
    }
    QTextStream out(&file);
    level.write(out);
    out.flush();
    if (out.status() == QTextStream::Ok && file.flush()) {
        return true;
    }
    // Half a level would be taken for the user's own from now on.
    file.remove();
    return false;
}

} // namespace

/// Usage: druvelk-levels WORKSPACE
int main(int argc, char **argv) {
    if (argc != 2) {
        std::fputs("usage: druvelk-levels WORKSPACE\n", stderr);
        return 2;
    }
    for (const SampleLevel &sample : sampleLevels()) {
        if (!writeIfMissing(sample, QDir(QFile::decodeName(argv[1])))) {
            std::fprintf(stderr, "cannot write %s\n", sample.fileName);
            return 1;
        }
    }
    return 0;
}
