// The commands of the two menus.
#include "app/editorMain.h"

#include "app/InitDialog.h"
#include "app/LevelFileDialog.h"
#include "app/LevelHistory.h"
#include "app/WaitCursor.h"
#include "app/WheelGuard.h"
#include "environment/BackgroundNode.h"
#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"
#include "scene/LevelFile.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGroupBox>
#include <QMessageBox>
#include <QWindow>
#include <array>
#include <cstdio>
#include <cstdlib>

void editorMain::fileNew() {
    InitDialog dialog(this);
    guardFromWheel(dialog);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    // By position, which is the same in every language.
    static constexpr std::array dimensions{40, 60, 80};
    static constexpr std::array accuracies{2, 4};
    makeMap(dimensions.at(std::size_t(dialog.mapDimension->currentIndex())),
            accuracies.at(std::size_t(dialog.mapScale->currentIndex())));
}

void editorMain::makeMap(int dimension, int accuracy) {
    const WaitCursor working;
    const LevelHistory::Pause pause(*history);
    mapView->dimension = dimension;
    mapView->accuracy = accuracy;
    showAccuracy(accuracy);
    showDimension(dimension);
    BackgroundNode &options = environment();
    options.water = true;
    options.fog = false;
    options.waterWalking = true;
    options.craters = true;
    options.bengala = true;
    options.deathTouch = true;
    options.dynamicTime = true;

    mapView->setDirty(true);
    mapView->buildTerrain(level().mesh);
    mapView->refreshTerrain();
    mapView->resetCell();
    // Nobody could see or edit more of them.
    level().charSet->characters.resize(CharSetNode::slotCount);
    for (CharacterNode *const player : players()) {
        player->placed = false;
        player->active = false;
    }
    groupBox4->setEnabled(false);
    activeNow->setChecked(false);
    randomGeo->setChecked(false);
    options.birdsNumber = 3;
    mapView->updateTrackBallCenter();
    readBackLevel();
    refreshCounts();
}

void editorMain::fileOpen() {
    const QString fileName = askForLevelToOpen(this);
    if (!fileName.isEmpty()) {
        openLevel(fileName);
    }
}

void editorMain::openLevel(const QString &fileName) {
    const WaitCursor working;
    // The start level is no level to save again.
    lastLevel = QFileInfo(fileName).fileName() == QLatin1String("default") ? QString() : fileName;
    const LevelHistory::Pause pause(*history);
    mapView->resetCell();
    mapView->replaceDocument(std::make_unique<LevelDocument>());
    level().load(fileName);
    level().complete();
    MeshNode &terrain = *level().mesh;
    // How the terrain is drawn is the window's choice, not the level's.
    terrain.wired = Wired->isChecked() ? 1 : 0;
    if (terrain.dimension == 40 || terrain.dimension == 60 || terrain.dimension == 80) {
        showDimension(terrain.dimension);
        mapView->dimension = terrain.dimension;
    }
    if (terrain.density == 2 || terrain.density == 4) {
        showAccuracy(terrain.density);
        mapView->accuracy = terrain.density;
    }
    readBackLevel();
    refreshCounts();
    mapView->setDirty(true);
    mapView->refreshTerrain();
    mapView->updateTrackBallCenter();
    history->restart();
}

void editorMain::fileSave() {
    if (countActiveTeams() < 2) {
        warnOfTeams();
        return;
    }
    QString fileName = lastLevel;
    QString complaint;
    do {
        fileName = askForLevelToSave(this, fileName, complaint);
        if (fileName.isEmpty()) {
            return;
        }
        fileName = withLevelSuffix(fileName);
        complaint = tr("The level could not be written. Perhaps the disk is full.");
    } while (!saveLevel(level(), fileName));
    lastLevel = fileName;
}

void editorMain::warnOfTeams() {
    QMessageBox box(QMessageBox::Warning, tr("Cannot Save File"),
                    tr("You have to choose at least 2 teams and 2 players"), QMessageBox::Ok);
    // Without a parent it has neither the program's icon nor a place over the window.
    box.setWindowIcon(windowIcon());
    QRect place(QPoint(), box.sizeHint());
    place.moveCenter(frameGeometry().center());
    box.move(place.topLeft());
    box.winId();
    box.windowHandle()->setTransientParent(windowHandle());
    box.exec();
}

void editorMain::fileExit() {
    std::fflush(nullptr);
    std::_Exit(0);
}

void editorMain::helpAbout() {
    QMessageBox::about(this, tr("About Druvelk Editor"),
                       tr("Druvelk Editor \n\n"
                          "Version %1\n"
                          "Shapes, dresses and peoples the levels of a team battle game.\n"
                          "Written by the developers of the Druvelk Editor.\n\n"
                          "Support: support@druvelk.example")
                           .arg(QStringLiteral(DRUVELK_VERSION)));
}
