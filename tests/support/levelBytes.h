#pragma once

#include "scene/LevelDocument.h"

#include <QBuffer>

/// Reads a level from bytes; what CISG::read returned.
inline bool readLevel(CISG &level, QByteArray bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return level.read(buffer);
}

/// A level whose one group holds the given text.
inline QByteArray levelOf(const QByteArray &nodes) {
    return "<CISG>\n<CISGGroup>\n" + nodes + "</CISGGroup>\n</CISG>\n";
}
