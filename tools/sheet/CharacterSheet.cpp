#include "tools/sheet/CharacterSheet.h"

#include "models/CIGLPlayerWidget.h"
#include "models/CharacterCatalogue.h"
#include "tools/sheet/Sheet.h"

#include <QDir>
#include <QFile>

namespace {

std::string encoded(const QString &path) {
    return QFile::encodeName(path).toStdString();
}

void showIn(CIGLPlayerWidget &preview, const CharacterFiles &files) {
    preview.modelPath = encoded(files.model);
    preview.modelSkinPath = encoded(files.modelSkin);
    preview.weaponPath = encoded(files.weapon);
    preview.weaponSkinPath = encoded(files.weaponSkin);
    preview.reloadPending = true;
}

} // namespace

bool saveCharacterSheets(const QString &directory) {
    CIGLPlayerWidget preview;
    preview.resize(360, 420);
    bool saved = true;
    for (const char *character : characterNames) {
        Sheet sheet({360, 420}, static_cast<int>(weaponNames.size()));
        for (const char *team : teamNames) {
            for (const char *weapon : weaponNames) {
                showIn(preview,
                       characterFiles(QLatin1String(character), QLatin1String(team), QLatin1String(weapon)));
                sheet.add(preview.grabFramebuffer(),
                          QStringLiteral("%1, %2").arg(QLatin1String(team), QLatin1String(weapon)));
            }
        }
        saved =
            sheet.save(QDir(directory).filePath(QLatin1String(character) + QStringLiteral(".png"))) && saved;
    }
    return saved;
}
