#pragma once

#include <QString>

class QWidget;

/// The name with ".xml" appended where it does not end so already (in capitals or not).
QString withLevelSuffix(const QString &fileName);

/// Asks for a level file below ./levels/ to open. Empty where the user cancels.
QString askForLevelToOpen(QWidget *parent);

/// Asks under which name to save a level. The name is made whole with withLevelSuffix before the
/// dialog asks whether an existing file may be replaced. Empty where the user cancels.
QString askForLevelToSave(QWidget *parent);
