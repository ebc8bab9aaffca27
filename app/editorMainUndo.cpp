// Taking changes of the level back, and what follows from it for the controls.
#include "app/editorMain.h"

#include "app/LevelHistory.h"
#include "environment/BackgroundNode.h"
#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

/// Leaves undo to the window where a spin box shows its own value; a number half typed keeps its own.
class SpinBoxUndo : public QObject {
public:
    explicit SpinBoxUndo(QSpinBox &watched) : QObject(&watched), box(watched) {
        watched.installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() == QEvent::ShortcutOverride) {
            const auto &key = static_cast<QKeyEvent &>(*event);
            const bool isUndo = key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
            if (isUndo && box.cleanText() == box.locale().toString(box.value())) {
                event->ignore();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QSpinBox &box;
};

} // namespace

/// Connected after everything else, so that a step holds what one event did to the level and, through
/// the controls, to itself.
void editorMain::connectHistory() {
    const auto recorded = [this] { history->record(); };
    for (QPushButton *const button : {TerrainColor, SunColor, WaterColor, SmoothTerrain, Place}) {
        connect(button, &QPushButton::clicked, this, recorded);
    }
    connect(EditChar, &QPushButton::released, this, recorded);
    for (QComboBox *const box :
         {dayTime, TerrainTextureType, SkyTextureType, waterTextureType, birdTextureType, gravity}) {
        connect(box, &QComboBox::textActivated, this, recorded);
    }
    for (QCheckBox *const box : {Fog, water, randomGeo, activeNow, randomStart, waterWalking, craters,
                                 bengala, deathTouch, DynamicTime}) {
        connect(box, &QCheckBox::toggled, this, recorded);
    }
    const auto recordedAs = [this](LevelHistory::Source source) {
        return [this, source] { history->record(source); };
    };
    connect(sunSpeed, &QSpinBox::valueChanged, this, recordedAs(LevelHistory::sunSpeed));
    connect(birdsNumber, &QSpinBox::valueChanged, this, recordedAs(LevelHistory::birdsNumber));
    connect(mapView, &GLMapWidget::heightsChanged, this, recordedAs(LevelHistory::wheel));
    connect(fileNewAction, &QAction::triggered, this, recorded);

    const auto key = [this](const QList<QKeySequence> &keys, void (LevelHistory::*walk)()) {
        auto *const shortcut = new QShortcut(this);
        shortcut->setKeys(keys);
        connect(shortcut, &QShortcut::activated, this, [this, walk] { (*history.*walk)(); });
    };
    key({Qt::CTRL | Qt::Key_Z}, &LevelHistory::undo);
    key({Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y}, &LevelHistory::redo);
    for (QSpinBox *const box : {sunSpeed, birdsNumber}) {
        new SpinBoxUndo(*box);
    }
}

/// Fills the controls without running the commands behind them, which would change the level.
void editorMain::showLevelUnchanged() {
    std::vector<QSignalBlocker> silent;
    for (QWidget *const control :
         std::initializer_list<QWidget *>{water, Fog, waterWalking, craters, bengala, deathTouch, DynamicTime,
                                          randomGeo, randomStart, activeNow, sunSpeed, birdsNumber}) {
        silent.emplace_back(control);
    }
    showDimension(mapView->dimension);
    showAccuracy(mapView->accuracy);
    readBackOptions();
    readBackDayTime();
    readBackGravity();
    sunSpeed->setValue(environment().sunSpeed);
    birdsNumber->setValue(environment().birdsNumber);
    readBackTextures();
    randomStart->setChecked(players().first()->cell == CharacterNode::randomStart);
    randomGeo->setChecked(level().mesh->randomGeography);
    refreshPlayerPanel();
    refreshCounts();
    showColors();

    // What the form's connections do when a control changes.
    for (QWidget *const control :
         std::initializer_list<QWidget *>{waterWalking, WaterColor, textLabel2_2, WaterTextureGroup}) {
        control->setEnabled(water->isChecked());
    }
    sunSpeed->setEnabled(DynamicTime->isChecked());
    sunMoving->setEnabled(DynamicTime->isChecked());
    Place->setDisabled(randomStart->isChecked());
    birdTextureGroup->setEnabled(birdsNumber->value() != 0);
}
