#pragma once

#include "scene/LevelDocument.h"

#include <QString>
#include <functional>
#include <vector>

struct SampleLevel {
    QString fileName;                          ///< Relative to the workspace.
    std::function<void(LevelDocument &)> make; ///< Fills a complete document.
};

/// The start level and the samples, in the order a new user would look at them.
const std::vector<SampleLevel> &sampleLevels();
