#pragma once

#include <QByteArray>
#include <QFile>

/// All of a file; nothing where there is none.
inline QByteArray contentOf(const QString &fileName) {
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool writeFile(const QString &fileName, const QByteArray &bytes) {
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}
