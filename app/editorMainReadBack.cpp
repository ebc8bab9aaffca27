// Filling the controls from the level. Nothing here blocks signals: the commands behind the
// controls and the form's own connections are meant to run where a control changes.
#include "app/editorMain.h"

#include "app/ColorSwatch.h"
#include "app/LevelValues.h"
#include "environment/BackgroundNode.h"
#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/CharacterNode.h"
#include "scene/LevelDocument.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>

namespace {

void select(QComboBox *box, const char *name) {
    box->setCurrentIndex(box->findData(QString::fromLatin1(name)));
}

/// The fourth part of a path: a picture's file name, or a sky's folder.
QString fourthPart(const QString &path) {
    return path.section(u'/', 3, 3);
}

QString withoutExtension(const QString &fileName) {
    return fileName.section(u'.', 0, 0);
}

/// Selects the texture of that name. A name that is no item is only shown (or, where there is
/// none, the path); the level keeps it until the user picks another.
void selectTexture(QComboBox *box, const QString &name, const QString &path) {
    const int index = box->findData(name);
    box->setPlaceholderText(index != -1 ? QString() : name.isEmpty() ? path : name);
    box->setCurrentIndex(index);
}

} // namespace

void editorMain::readBackLevel() {
    readBackOptions();
    readBackDayTime();
    readBackGravity();
    sunSpeed->setValue(environment().sunSpeed);
    readBackTextures();
    refreshPlayerPanel();
    readBackStartPositions();
    randomGeo->setChecked(level().mesh->randomGeography);
    mapView->setRandomGeo(level().mesh->randomGeography);
    birdsNumber->setValue(environment().birdsNumber);
    showColors();
    showTeamDots();
}

void editorMain::readBackOptions() {
    const BackgroundNode &options = environment();
    // Each is read just before it is set: a change of the water drags in-water walking along.
    water->setChecked(options.water);
    Fog->setChecked(options.fog);
    waterWalking->setChecked(options.waterWalking);
    craters->setChecked(options.craters);
    bengala->setChecked(options.bengala);
    deathTouch->setChecked(options.deathTouch);
    DynamicTime->setChecked(options.dynamicTime);
}

void editorMain::readBackDayTime() {
    const char *name = nameOf(dayTimes, environment().dayTime);
    if (name == nullptr) {
        name = "noon";
        environment().dayTime = 70;
        environment().updateSkyTint();
    }
    select(dayTime, name);
}

void editorMain::readBackGravity() {
    const char *name = nameOf(gravities, environment().gravity);
    if (name == nullptr) {
        name = "normal";
        environment().gravity = 9.8F;
    }
    select(gravity, name);
}

void editorMain::readBackTextures() {
    const auto selectPicture = [](QComboBox *box, const QString &path) {
        selectTexture(box, withoutExtension(fourthPart(path)), path);
    };
    selectPicture(TerrainTextureType, environment().groundTexture);
    selectPicture(waterTextureType, environment().waterTexture);
    selectTexture(SkyTextureType, fourthPart(environment().cubeTexture), environment().cubeTexture);
    selectPicture(birdTextureType, environment().birdTexture);
}

void editorMain::readBackStartPositions() {
    if (players().first()->cell == CharacterNode::randomStart) {
        randomStart->setChecked(true);
        return;
    }
    randomStart->setChecked(false);
    for (CharacterNode *const player : players()) {
        if (player->active && player->cell >= 0) {
            mapView->updatePlayerPosition(player);
        }
    }
}

void editorMain::showColors() {
    const std::array<float, 4> &sun = environment().sunColor;
    TerrainColor->setIcon(colorSwatch(level().mesh->color));
    SunColor->setIcon(colorSwatch({sun[0], sun[1], sun[2]}));
    WaterColor->setIcon(colorSwatch(environment().waterColor));
}
