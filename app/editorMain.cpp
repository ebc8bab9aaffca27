#include "app/editorMain.h"

#include "app/LevelHistory.h"
#include "app/WaitCursor.h"
#include "environment/BackgroundNode.h"
#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/LevelDocument.h"

#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>

editorMain::editorMain(QWidget *parent, const QString &name, Qt::WindowFlags flags)
    : EditorForm(parent, name, flags) {
    init();
}

editorMain::~editorMain() = default;

void editorMain::init() {
    editorMain::loadStartLevel();
    mapView->updateTrackBallCenter();
    editorMain::readBackLevel();
    history = std::make_unique<LevelHistory>(
        *mapView, [this] { showLevelUnchanged(); }, this);
    connectHistory();
}

void editorMain::loadStartLevel() {
    level().load(QStringLiteral("default"));
    level().complete();
    showAccuracy(4);
    showDimension(60);
    mapView->refreshTerrain();
}

void editorMain::changeEvent(QEvent *event) {
    const int player = CharID->currentIndex();
    EditorForm::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        CharID->setCurrentIndex(player);
        showDimension(shownDimension);
        showAccuracy(shownAccuracy);
        readBackLevel();
    }
}

LevelDocument &editorMain::level() const {
    return *mapView->document;
}

BackgroundNode &editorMain::environment() const {
    return *level().background;
}

void editorMain::showDimension(int dimension) {
    switch (dimension) {
    case 40:
        DimensionTextLabel->setText(tr("Small"));
        break;
    case 60:
        DimensionTextLabel->setText(tr("Medium"));
        break;
    case 80:
        DimensionTextLabel->setText(tr("Large"));
        break;
    default:
        return;
    }
    shownDimension = dimension;
}

void editorMain::showAccuracy(int accuracy) {
    switch (accuracy) {
    case 2:
        AccuracyTextLabel->setText(tr("Low"));
        break;
    case 4:
        AccuracyTextLabel->setText(tr("High"));
        break;
    default:
        return;
    }
    shownAccuracy = accuracy;
}

void editorMain::Fog_toggled(bool on) {
    environment().fog = on;
    mapView->setDirty(true);
}

void editorMain::water_toggled(bool on) {
    environment().water = on;
    if (on) {
        // The plane's list is only made while the water is on.
        mapView->setDirty(true);
    } else {
        mapView->update();
    }
}

void editorMain::waterWalking_toggled(bool on) {
    environment().waterWalking = on;
}

void editorMain::craters_toggled(bool on) {
    environment().craters = on;
}

void editorMain::bengala_toggled(bool on) {
    environment().bengala = on;
}

void editorMain::deathTouch_toggled(bool on) {
    environment().deathTouch = on;
}

void editorMain::DynamicTime_toggled(bool on) {
    environment().dynamicTime = on;
}

void editorMain::sunSpeed_valueChanged(int speed) {
    environment().sunSpeed = speed;
}

void editorMain::birdsNumber_valueChanged(int number) {
    environment().birdsNumber = number;
    birdTextureGroup->setEnabled(number != 0);
}

void editorMain::randomGeo_toggled(bool on) {
    mapView->setRandomGeo(on);
}

// The view switches by itself; it starts, like the action, switched off.
void editorMain::SeePreview(bool /*on*/) {
    mapView->changePreview();
}

void editorMain::wiredPreview(bool /*on*/) {
    mapView->changeWired();
}

void editorMain::erodeTerrain() {
    const WaitCursor working;
    mapView->erodeTerrain();
}

void editorMain::updateTrackBallCenter_() {
    mapView->updateTrackBallCenter();
}
