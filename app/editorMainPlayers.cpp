// The commands of the page "Players".
#include "app/editorMain.h"

#include "app/TeamDot.h"
#include "app/WheelGuard.h"
#include "map/GLMapWidget.h"
#include "models/PlayerDialog.h"
#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QToolTip>
#include <algorithm>
#include <bitset>

QList<CharacterNode *> editorMain::players() const {
    QList<CharacterNode *> shown;
    const auto &all = level().charSet->characters;
    for (std::size_t i = 0; i < std::min(all.size(), CharSetNode::slotCount); ++i) {
        shown.append(all[i].get());
    }
    return shown;
}

CharacterNode &editorMain::selectedPlayer() const {
    return *players().at(std::max(CharID->currentIndex(), 0));
}

bool editorMain::counts(const CharacterNode &player) const {
    return player.active && (player.placed || randomStart->isChecked());
}

int editorMain::countActivePlayers() {
    const auto all = players();
    return int(std::count_if(all.begin(), all.end(), [this](const auto *player) { return counts(*player); }));
}

int editorMain::countActiveTeams() {
    std::bitset<CharacterNode::teamCount> teams;
    for (const CharacterNode *const player : players()) {
        const int team = player->teamIndex;
        if (counts(*player) && team >= 0 && team < CharacterNode::teamCount) {
            teams.set(std::size_t(team));
        }
    }
    return int(teams.count());
}

void editorMain::refreshCounts() {
    numPlayer->setValue(countActivePlayers());
    numTeams->setValue(countActiveTeams());
    showTeamDots();
}

void editorMain::showTeamDots() {
    const auto all = players();
    for (qsizetype i = 0; i < all.size(); ++i) {
        CharID->setItemIcon(int(i), teamDot(*all[i]));
    }
}

void editorMain::refreshPlayerPanel() {
    charID_activated(CharID->currentIndex());
}

void editorMain::charID_activated(int index) {
    const auto all = players();
    for (qsizetype i = 0; i < all.size(); ++i) {
        all[i]->current = i == index;
    }
    if (index < 0 || index >= all.size()) {
        return;
    }
    const CharacterNode &player = *all[index];
    groupBox4->setEnabled(player.active);
    activeNow->setChecked(player.active);
    showPlayerName(player.name);
    textLabelWeapon->setText(player.weapon);
    textLabelCharacter->setText(player.model);
    textLabelPlaced->setText(player.placed ? tr("yes") : tr("no"));
    textLabelTeam->setText(player.team);
    textLabelWait->setText(QString::number(player.waitFor));
    mapView->update();
}

void editorMain::activeNow_toggled(bool on) {
    selectedPlayer().active = on;
    groupBox4->setEnabled(on);
    activeNow->setChecked(on);
    refreshCounts();
    mapView->update();
}

void editorMain::randomStart_toggled(bool on) {
    const auto all = players();
    if (on || all.first()->cell == CharacterNode::randomStart) {
        for (CharacterNode *const player : all) {
            player->placed = false;
            player->cell = on ? CharacterNode::randomStart : CharacterNode::notPlaced;
        }
    }
    refreshCounts();
    refreshPlayerPanel();
    mapView->update();
}

void editorMain::Place_clicked() {
    Place->setChecked(false); // A toggle that stays down would look like a mode.
    if (!mapView->placePlayer(&selectedPlayer())) {
        QToolTip::showText(QCursor::pos(), tr("No selected cell is free"), Place);
    }
    refreshPlayerPanel();
    refreshCounts();
}

void editorMain::EditPlayer() {
    PlayerDialog dialog(this);
    guardFromWheel(dialog);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    dialog.copyTo(selectedPlayer());
    refreshPlayerPanel();
    numTeams->setValue(countActiveTeams());
    showTeamDots();
}
