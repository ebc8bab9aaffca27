#include "models/CharacterCatalogue.h"

CharacterFiles characterFiles(const QString &character, const QString &team, const QString &weapon) {
    const QString directory = QStringLiteral("./data/") + character + QLatin1Char('/');
    return {directory + QStringLiteral("tris.md2"), directory + team + QStringLiteral(".png"),
            directory + weapon + QStringLiteral(".md2"), directory + weapon + QStringLiteral(".png")};
}
