#pragma once

#include <QString>

/// The start level and every level below levels/, from above and in the preview from four sides.
/// False where the sheet cannot be saved.
bool saveLevelSheet(const QString &fileName);
