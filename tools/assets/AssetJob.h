#pragma once

#include <QDir>
#include <QString>
#include <functional>
#include <vector>

/// One piece of the data tree that can be made on its own, on any thread. The bytes it writes
/// depend on nothing but the program.
struct AssetJob {
    QString name; ///< For messages: "textures/grass1.jpg".
    std::function<bool(const QDir &)>
        make; ///< Writes below the data directory; false where a file cannot be written.
};

/// Ground, water, bird and tile pictures and the skies.
std::vector<AssetJob> pictureJobs();

/// Characters, their team skins and their weapons.
std::vector<AssetJob> characterJobs();
