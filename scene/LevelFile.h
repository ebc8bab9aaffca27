#pragma once

#include <QByteArray>
#include <QString>

class CISG;

/// The level as its file holds it.
QByteArray levelBytes(const CISG &level);

/// Writes bytes to a file, created or replaced as FileReplacement does. True once they are on the
/// disk; false, with a line in the log category "druvelk.level", where that fails.
bool saveBytes(const QByteArray &bytes, const QString &fileName);

/// Writes the level to a file as saveBytes does.
bool saveLevel(const CISG &level, const QString &fileName);
