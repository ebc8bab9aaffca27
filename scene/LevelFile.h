#pragma once

#include <QByteArray>
#include <QString>

class CISG;

/// The level as its file holds it.
QByteArray levelBytes(const CISG &level);

/// Writes bytes to a file, created or replaced. The earlier file stays whole until the new
/// one is; only where the folder can not be written but the file can, it is written in place.
/// False, with a line in the log category "druvelk.level", where that fails.
bool saveBytes(const QByteArray &bytes, const QString &fileName);

/// Writes the level to a file as saveBytes does.
bool saveLevel(const CISG &level, const QString &fileName);
