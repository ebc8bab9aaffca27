#include "scene/LevelFile.h"

#include "scene/CISG.h"

#include <QLoggingCategory>
#include <QSaveFile>
#include <QTextStream>

namespace {

Q_LOGGING_CATEGORY(levels, "druvelk.level")

} // namespace

QByteArray levelBytes(const CISG &level) {
    QByteArray bytes;
    QTextStream out(&bytes);
    level.write(out);
    out.flush();
    return bytes;
}

bool saveBytes(const QByteArray &bytes, const QString &fileName) {
    QSaveFile file(fileName);
    file.setDirectWriteFallback(true);
    bool saved = file.open(QIODevice::WriteOnly);
    if (saved) {
        // On a full disk commit() alone reports success over a truncated file.
        saved = file.write(bytes) == bytes.size() && file.flush() && file.error() == QFileDevice::NoError;
        if (!saved) {
            file.cancelWriting();
        }
        saved = file.commit() && saved;
    }
    if (!saved) {
        qCWarning(levels).noquote() << "Cannot save" << fileName << "-" << file.errorString();
    }
    return saved;
}

bool saveLevel(const CISG &level, const QString &fileName) {
    return saveBytes(levelBytes(level), fileName);
}
