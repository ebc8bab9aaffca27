#include "tools/sheet/LevelSheet.h"

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

} // namespace

bool saveLevelSheet(const QString &fileName) {
    GLMapWidget view;
    view.resize(560, 420);
    Sheet sheet({560, 420}, 5);
    addLevel(sheet, view, QStringLiteral("default"));
    const QDir levels(QStringLiteral("levels"));
    for (const QString &name : levels.entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name)) {
        addLevel(sheet, view, levels.filePath(name));
    }
    return sheet.save(fileName);
}
