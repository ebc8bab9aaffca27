#pragma once

#include <QIcon>
#include <QString>

/// An icon of the collection inside the program, by its name ("new.bmp", "iconEditor.png"), with
/// the pictures for screens of ratio 1 and 2. The same pictures stand under ":/" + name and, for
/// ratio 2, with "@2x" before the last dot. Needs the application object.
QIcon programIcon(const QString &name);
