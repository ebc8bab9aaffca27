// The commands that dress a level: colours, textures, time of day, gravity.
#include "app/editorMain.h"

#include "app/LevelValues.h"
#include "environment/BackgroundNode.h"
#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/LevelDocument.h"

#include <QColorDialog>
#include <QComboBox>
#include <optional>

namespace {

std::optional<std::array<float, 3>> askForColor(QWidget *parent) {
    QColorDialog dialog(Qt::white, parent);
    dialog.setObjectName(QStringLiteral("color dialog"));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.exec() != QDialog::Accepted || !dialog.selectedColor().isValid()) {
        return std::nullopt;
    }
    const QColor color = dialog.selectedColor();
    const auto component = [](int value) { return float(value) * (1.0F / 255.0F); };
    return std::array{component(color.red()), component(color.green()), component(color.blue())};
}

/// The item's name as it stands in the data tree; empty where nothing is selected.
QString chosenName(const QComboBox *box) {
    return box->currentData().toString();
}

QString textureFile(const QString &name) {
    return QStringLiteral("./data/textures/%1.jpg").arg(name);
}

} // namespace

void editorMain::terrainColor() {
    if (const auto color = askForColor(this)) {
        level().mesh->color = *color;
        environment().groundColor = *color;
        mapView->update();
        showColors();
    }
}

void editorMain::waterColor() {
    if (const auto color = askForColor(this)) {
        environment().waterColor = *color;
        mapView->update();
        showColors();
    }
}

void editorMain::sunColor() {
    if (const auto color = askForColor(this)) {
        environment().setSunColor((*color)[0], (*color)[1], (*color)[2]);
        mapView->setDirty(true);
        showColors();
    }
}

void editorMain::sunAngle() {
    if (const auto angle = valueOf(dayTimes, chosenName(dayTime))) {
        environment().dayTime = *angle;
        environment().updateSkyTint();
    }
    mapView->update();
}

void editorMain::gravity_activated(const QString &text) {
    const QString name = gravity->itemData(gravity->findText(text)).toString();
    if (const auto value = valueOf(gravities, name)) {
        environment().gravity = *value;
    }
}

void editorMain::TerrainTextureType_activated(const QString & /*text*/) {
    const QString name = chosenName(TerrainTextureType);
    if (!name.isEmpty()) {
        level().mesh->texture = textureFile(name);
        environment().setGroundTexture(textureFile(name));
        mapView->setDirty(true);
    }
}

void editorMain::SkyTextureType_activated(const QString & /*text*/) {
    const QString name = chosenName(SkyTextureType);
    if (!name.isEmpty()) {
        environment().setCubeTexture(QStringLiteral("./data/CubeMap/%1/mount.jpg").arg(name));
        mapView->setDirty(true);
    }
}

void editorMain::waterTextureType_activated(const QString & /*text*/) {
    const QString name = chosenName(waterTextureType);
    if (!name.isEmpty()) {
        environment().setWaterTexture(textureFile(name));
        mapView->setDirty(true);
    }
}

void editorMain::birdTextureType_activated(const QString & /*text*/) {
    const QString name = chosenName(birdTextureType);
    if (!name.isEmpty()) {
        environment().setBirdTexture(textureFile(name));
    }
}
