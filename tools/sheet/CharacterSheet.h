#pragma once

#include <QString>

/// Every character in every team's colours with every weapon, as the player dialog's preview draws
/// them; one sheet a character, named after it. False where a sheet cannot be saved.
bool saveCharacterSheets(const QString &directory);
