#include "scene/CharacterNode.h"

#include "scene/CharacterNames.h"
#include "scene/LevelText.h"

#include <QTextStream>
#include <array>

namespace {

static_assert(teamNames.size() == CharacterNode::teamCount);

/// Replaces `name` by the entry of a code; a code outside the table leaves it.
template <std::size_t N>
void nameFromCode(const std::array<const char *, N> &table, int code, QString &name) {
    if (code >= 0 && static_cast<std::size_t>(code) < N) {
        name = QLatin1String(table[static_cast<std::size_t>(code)]);
    }
}

QString weaponName(float value) {
    if (value > 0.51F) {
        return QStringLiteral("Annientatore");
    }
    return value < 0.49F ? QStringLiteral("Small Gun") : QStringLiteral("Standard");
}

} // namespace

void CharacterNode::writeXml(QTextStream &out) const {
    if (!isSaved()) {
        return;
    }
    QByteArray text = "<CharacterNode  name=\"" + attributeText(name) + "\">\n";
    for (const int code : {modelIndex, waitFor}) {
        text += ' ';
        appendInt(text, code);
    }
    text += ' ';
    appendReal(text, weaponValue);
    for (const int code : {teamIndex, cell}) {
        text += ' ';
        appendInt(text, code);
    }
    out << text << "</CharacterNode>\n";
}

bool CharacterNode::readXml(QDomElement element, CISG *) {
    if (element.tagName() != QLatin1String("CharacterNode")) {
        return false;
    }
    name = element.attribute(QStringLiteral("name"), QStringLiteral("Player"));
    ValueReader values(element.text());
    values.read(modelIndex);
    values.read(waitFor);
    values.read(weaponValue);
    values.read(teamIndex);
    const bool hasCell = values.read(cell);
    nameFromCode(characterNames, modelIndex, model);
    nameFromCode(teamNames, teamIndex, team);
    weapon = weaponName(weaponValue);
    placed = hasCell && cell != randomStart;
    active = true;
    return true;
}
