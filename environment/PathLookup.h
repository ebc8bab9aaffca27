#pragma once

#include <QString>

/// The path under which a file or directory can be opened: `path` itself where it exists, else one
/// that differs from it only in the case of letters, found component by component (of several, the
/// one whose leading components are spelled as asked). `path` unchanged where there is none, or
/// where it is longer than 4,096 characters.
QString existingPath(const QString &path);
