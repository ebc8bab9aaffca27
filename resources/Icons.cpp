#include "resources/Icons.h"

#include <QFile>

/// Makes the collection known also where the library is linked statically. (The toolkit's macro
/// does not work in a namespace.)
static void registerCollection() {
    Q_INIT_RESOURCE(druvelk_icons);
}

QIcon programIcon(const QString &name) {
    registerCollection();
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString base = QStringLiteral(":/") + name.left(dot);
    QIcon icon;
    // Both by name: the toolkit itself adds the larger one only if such a screen is there now.
    icon.addFile(base + name.mid(dot));
    icon.addFile(base + QStringLiteral("@2x") + name.mid(dot));
    for (const int size : {16, 32, 64, 128, 256}) {
        const QString sized = QStringLiteral("%1-%2%3").arg(base).arg(size).arg(name.mid(dot));
        if (QFile::exists(sized)) {
            icon.addFile(sized);
        }
    }
    return icon;
}
