// The commands that dress a level: colours, textures, time of day, gravity.
#include "app/editorMain.h"

#include "app/LevelValues.h"
#include "environment/BackgroundNode.h"
#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/LevelDocument.h"

#include <QColorDialog>
#include <QComboBox>
#include <algorithm>
#include <array>
#include <optional>

namespace {

QColor asColor(const std::array<float, 3> &color) {
    const auto component = [](float value) { return std::clamp(value, 0.0F, 1.0F); };
    return QColor::fromRgbF(component(color[0]), component(color[1]), component(color[2]));
}

std::array<QColor, 3> colorsOf(const LevelDocument &level) {
    const auto &sun = level.background->sunColor;
    return {asColor(level.mesh->color), asColor({sun[0], sun[1], sun[2]}),
            asColor(level.background->waterColor)};
}

/// Offers colours among the color dialog's custom ones, in the last fields, which the user's own
/// reach last; what stood there comes back.
class OfferedColors {
public:
    explicit OfferedColors(const std::array<QColor, 3> &colors) : offered(colors) {
        for (std::size_t i = 0; i < offered.size(); ++i) {
            before[i] = QColorDialog::customColor(field(i));
            QColorDialog::setCustomColor(field(i), offered[i]);
        }
    }
    OfferedColors(const OfferedColors &) = delete;
    OfferedColors &operator=(const OfferedColors &) = delete;
    ~OfferedColors() {
        for (std::size_t i = 0; i < offered.size(); ++i) {
            if (QColorDialog::customColor(field(i)) == offered[i]) {
                QColorDialog::setCustomColor(field(i), before[i]);
            }
        }
    }

private:
    int field(std::size_t i) const { return QColorDialog::customCount() - int(offered.size() - i); }

    std::array<QColor, 3> offered;
    std::array<QColor, 3> before;
};

std::optional<std::array<float, 3>> askForColor(QWidget *parent, const LevelDocument &level) {
    const OfferedColors offered(colorsOf(level));
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
    if (const auto color = askForColor(this, level())) {
        level().mesh->color = *color;
        environment().groundColor = *color;
        mapView->update();
        showColors();
    }
}

void editorMain::waterColor() {
    if (const auto color = askForColor(this, level())) {
        environment().waterColor = *color;
        mapView->update();
        showColors();
    }
}

void editorMain::sunColor() {
    if (const auto color = askForColor(this, level())) {
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
