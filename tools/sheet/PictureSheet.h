#pragma once

#include <QString>

/// Every ground and water picture repeated 5 × 5, the birds and the tile. False where the sheet cannot be
/// saved.
bool saveTextureSheet(const QString &fileName);

/// Every sky as a panorama all around, from a little below the horizon to the zenith.
bool saveSkySheet(const QString &fileName);
