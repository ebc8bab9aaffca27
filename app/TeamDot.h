#pragma once

#include <QIcon>

class CharacterNode;

/// A dot in the colour of the player's team, hollow while it is not placed; an empty place for a
/// player that takes no part, so that all names of a list stand in line.
QIcon teamDot(const CharacterNode &player);
