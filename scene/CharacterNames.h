#pragma once

#include <array>

/// What players can be, in the order that codes them: the place of a name is the number that a
/// level stores, and the name is also that of a file or directory below the data tree.
inline constexpr std::array<const char *, 7> characterNames{"Terminator", "Hayden", "Hunter", "Rat",
                                                            "Dire",       "Walker", "Marine"};
inline constexpr std::array<const char *, 4> teamNames{"Blue", "Green", "Red", "Personal"};

/// Red, green and blue, from 0 to 1, of a team's mark.
inline constexpr std::array<std::array<float, 3>, teamNames.size()> teamColors{
    {{0, 0, 1}, {0, 1, 0}, {1, 0, 0}, {1, 1, 1}}};
inline constexpr std::array<const char *, 3> weaponNames{"Small gun", "Annientatore", "Standard"};

/// What a level stores for each of weaponNames.
inline constexpr std::array<float, weaponNames.size()> weaponValues{0.3F, 0.7F, 0.5F};
