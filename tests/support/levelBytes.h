#pragma once

#include "scene/LevelDocument.h"

#include <QBuffer>
#include <QTextStream>

/// Reads a level from bytes; what CISG::read returned.
inline bool readLevel(CISG &level, QByteArray bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return level.read(buffer);
}

/// The bytes that saving writes.
inline QByteArray writtenLevel(const CISG &level) {
    QByteArray bytes;
    QTextStream out(&bytes);
    level.write(out);
    out.flush();
    return bytes;
}

/// A level whose one group holds the given text.
inline QByteArray levelOf(const QByteArray &nodes) {
    return "<CISG>\n<CISGGroup>\n" + nodes + "</CISGGroup>\n</CISG>\n";
}
