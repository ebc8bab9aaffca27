#pragma once

#include <QString>

/// The start level and every level below levels/, from above and in the preview from four sides.
/// False where the sheet cannot be saved.
bool saveLevelSheet(const QString &fileName);

/// The same levels in the preview from eye heights 1, 6 and 20, at noon, at sunset and in fog.
bool saveEyeLevelSheet(const QString &fileName);
