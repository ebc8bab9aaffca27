#include "tools/sheet/LevelSheet.h"

#include "environment/BackgroundNode.h"
#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"
#include "tools/sheet/Sheet.h"

#include <QDir>

namespace {

void open(GLMapWidget &view, const QString &path) {
    auto level = std::make_unique<LevelDocument>();
    level->load(path);
    level->complete();
    view.resetCell();
    view.replaceDocument(std::move(level));
    view.dimension = view.document->mesh->dimension;
    view.refreshTerrain();
    view.cells->clearSelection();
    for (const auto &player : view.document->charSet->characters) {
        view.updatePlayerPosition(player.get());
    }
    view.updateTrackBallCenter();
    view.setDirty(true);
}

void addLevel(Sheet &sheet, GLMapWidget &view, const QString &path) {
    open(view, path);
    sheet.add(view.grabFramebuffer(), path);
    view.changePreview();
    for (int side = 0; side < 4; ++side) {
        const int degrees = 90 * side;
        rotation(view.viewRotation, static_cast<float>(degrees), {0, 1, 0});
        view.zoom = side == 3 ? 0.45F : 0.75F;
        sheet.add(view.grabFramebuffer(), QStringLiteral("turned by %1°").arg(degrees));
    }
    view.changePreview();
}

struct Light {
    const char *name;
    int dayTime;
    bool fog;
};

/// The level's own picture is that of the other sheet: here it is seen from low eyes in light it was not
/// made for.
void addEyeLevels(Sheet &sheet, GLMapWidget &view, const QString &path) {
    open(view, path);
    view.changePreview();
    view.zoom = 0.6F;
    for (const Light &light :
         {Light{"noon", 70, false}, Light{"sunset", 131, false}, Light{"fog", 50, true}}) {
        view.document->background->dayTime = light.dayTime;
        view.document->background->fog = light.fog;
        for (const int height : {1, 6, 20}) {
            const auto eye = static_cast<float>(height);
            view.eyeHeight = eye;
            rotation(view.viewRotation, 35.0F, {0, 1, 0});
            view.setDirty(true);
            sheet.add(view.grabFramebuffer(),
                      QStringLiteral("%1, %2, eye at %3").arg(path, QLatin1String(light.name)).arg(height));
        }
    }
    view.changePreview();
}

QStringList levelFiles() {
    QStringList files{QStringLiteral("default")};
    const QDir levels(QStringLiteral("levels"));
    for (const QString &name : levels.entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name)) {
        files << levels.filePath(name);
    }
    return files;
}

} // namespace

bool saveLevelSheet(const QString &fileName) {
    GLMapWidget view;
    view.resize(560, 420);
    Sheet sheet({560, 420}, 5);
    for (const QString &path : levelFiles()) {
        addLevel(sheet, view, path);
    }
    return sheet.save(fileName);
}

bool saveEyeLevelSheet(const QString &fileName) {
    GLMapWidget view;
    view.resize(420, 280);
    Sheet sheet({420, 280}, 9);
    for (const QString &path : levelFiles()) {
        addEyeLevels(sheet, view, path);
    }
    return sheet.save(fileName);
}
