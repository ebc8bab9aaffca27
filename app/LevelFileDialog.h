#pragma once

#include <QString>

class QWidget;

/// The name with ".xml" appended where it does not end so already (in capitals or not).
QString withLevelSuffix(const QString &fileName);

/// Asks for a level file below ./levels/ to open. A name that exists only with ".xml" behind it
/// stands for that file. Empty where the user cancels.
QString askForLevelToOpen(QWidget *parent);

/// Asks under which name to save a level, and starts with `proposal` in the field; `complaint` says
/// at the field why that name was asked for in vain. The name is made whole with withLevelSuffix
/// before the dialog asks whether an existing file may be replaced; one that cannot be written
/// leaves the dialog open and says why. Empty where the user cancels.
QString askForLevelToSave(QWidget *parent, const QString &proposal, const QString &complaint = {});
