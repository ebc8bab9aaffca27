#pragma once

#include "tools/assets/AssetJob.h"

#include <QDir>

/// Runs the jobs on all processors and puts what they made into `output`, where the file ".made"
/// records the content of each file. A file that differs from what was recorded has been changed by
/// someone and stays as it is. False, with a message per job, where something could not be made;
/// `output` is then as it was.
bool makeAssetTree(const std::vector<AssetJob> &jobs, const QDir &output);
