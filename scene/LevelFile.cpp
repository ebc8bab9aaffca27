#include "scene/LevelFile.h"

#include "scene/CISG.h"
#include "scene/FileReplacement.h"

#include <QLoggingCategory>
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
    FileReplacement file(fileName);
    const bool saved = file.replaceBy(bytes);
    if (!saved) {
        qCWarning(levels) << "Cannot save" << fileName << "-" << qPrintable(file.problem());
    }
    return saved;
}

bool saveLevel(const CISG &level, const QString &fileName) {
    return saveBytes(levelBytes(level), fileName);
}
