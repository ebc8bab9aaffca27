// What the controls of the form's pages are connected to.
#include "app/EditorForm.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

void EditorForm::connectGeography() {
    connect(TerrainColor, &QPushButton::clicked, this, &EditorForm::terrainColor);
    connect(SunColor, &QPushButton::clicked, this, &EditorForm::sunColor);
    connect(WaterColor, &QPushButton::clicked, this, &EditorForm::waterColor);
    connect(dayTime, &QComboBox::textActivated, this, &EditorForm::sunAngle);
    connect(Fog, &QCheckBox::toggled, this, &EditorForm::Fog_toggled);
    connect(water, &QCheckBox::toggled, this, &EditorForm::water_toggled);
    connect(randomGeo, &QCheckBox::toggled, this, &EditorForm::randomGeo_toggled);
    connect(SmoothTerrain, &QPushButton::clicked, this, &EditorForm::erodeTerrain);
}

void EditorForm::connectTextures() {
    const auto activated = &QComboBox::textActivated;
    connect(TerrainTextureType, activated, this, &EditorForm::TerrainTextureType_activated);
    connect(SkyTextureType, activated, this, &EditorForm::SkyTextureType_activated);
    connect(waterTextureType, activated, this, &EditorForm::waterTextureType_activated);
    connect(birdTextureType, activated, this, &EditorForm::birdTextureType_activated);
}

void EditorForm::connectPlayers() {
    connect(CharID, &QComboBox::activated, this, &EditorForm::charID_activated);
    connect(activeNow, &QCheckBox::toggled, this, &EditorForm::activeNow_toggled);
    connect(EditChar, &QPushButton::released, this, &EditorForm::EditPlayer);
    connect(Place, &QPushButton::clicked, this, &EditorForm::Place_clicked);
    connect(randomStart, &QCheckBox::toggled, this, &EditorForm::randomStart_toggled);
}

void EditorForm::connectOptions() {
    connect(gravity, &QComboBox::textActivated, this, &EditorForm::gravity_activated);
    connect(sunSpeed, &QSpinBox::valueChanged, this, &EditorForm::sunSpeed_valueChanged);
    connect(birdsNumber, &QSpinBox::valueChanged, this, &EditorForm::birdsNumber_valueChanged);
    connect(waterWalking, &QCheckBox::toggled, this, &EditorForm::waterWalking_toggled);
    connect(craters, &QCheckBox::toggled, this, &EditorForm::craters_toggled);
    connect(bengala, &QCheckBox::toggled, this, &EditorForm::bengala_toggled);
    connect(deathTouch, &QCheckBox::toggled, this, &EditorForm::deathTouch_toggled);
    connect(DynamicTime, &QCheckBox::toggled, this, &EditorForm::DynamicTime_toggled);
}

void EditorForm::connectControlsToEachOther() {
    connect(water, &QCheckBox::toggled, waterWalking, &QCheckBox::setEnabled);
    connect(water, &QCheckBox::toggled, waterWalking, &QCheckBox::setChecked);
    connect(water, &QCheckBox::toggled, WaterColor, &QPushButton::setEnabled);
    connect(water, &QCheckBox::toggled, textLabel2_2, &QLabel::setEnabled);
    connect(water, &QCheckBox::toggled, WaterTextureGroup, &QGroupBox::setEnabled);
    connect(DynamicTime, &QCheckBox::toggled, sunSpeed, &QSpinBox::setEnabled);
    connect(DynamicTime, &QCheckBox::toggled, sunMoving, &QLabel::setEnabled);
    connect(randomStart, &QCheckBox::toggled, Place, &QPushButton::setDisabled);
    connect(Preview, &QAction::toggled, Wired, &QAction::setVisible);
    connect(Preview, &QAction::toggled, centerTrack, &QAction::setVisible);
}
