#pragma once

#include "scene/CharacterNames.h"

#include <QString>

/// Where the data tree holds what a choice of character, team and weapon shows. Names are used as
/// they stand in characterNames, teamNames and weaponNames, with spaces and capitals.
struct CharacterFiles {
    QString model;      ///< The character's model.
    QString modelSkin;  ///< Its skin in the colours of the team.
    QString weapon;     ///< The character's own copy of the weapon's model.
    QString weaponSkin; ///< The weapon's skin.
};

/// The four paths, relative to the working directory.
CharacterFiles characterFiles(const QString &character, const QString &team, const QString &weapon);
