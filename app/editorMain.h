#pragma once

#include "app/EditorForm.h"

#include <memory>

class BackgroundNode;
class CharacterNode;
class LevelDocument;
class LevelHistory;

/// The editor's window: the form and what its controls do. Holds no level data of its own; the
/// controls are views of the map view's document.
class editorMain : public EditorForm {
    Q_OBJECT

public:
    explicit editorMain(QWidget *parent = nullptr, const QString &name = {},
                        Qt::WindowFlags flags = Qt::Window);
    ~editorMain() override;

    /// Loads the start level and shows it. Run once, at the end of construction.
    void init();

    void loadStartLevel() override;
    void readBackLevel() override;

    /// The players that take part: active, and placed or starting anywhere.
    int countActivePlayers() override;

    /// The different teams among them.
    int countActiveTeams() override;

public slots:
    void fileNew() override;
    void fileOpen() override;
    void fileSave() override;
    void EditPlayer() override;
    void terrainColor() override;
    void waterColor() override;
    void sunColor() override;
    void sunAngle() override;
    void gravity_activated(const QString &text) override;
    void TerrainTextureType_activated(const QString &text) override;
    void SkyTextureType_activated(const QString &text) override;
    void birdTextureType_activated(const QString &text) override;
    void waterTextureType_activated(const QString &text) override;
    void charID_activated(int index) override;
    void activeNow_toggled(bool on) override;
    void randomStart_toggled(bool on) override;
    void Place_clicked() override;
    void birdsNumber_valueChanged(int number) override;
    void updateTrackBallCenter_() override;
    void sunSpeed_valueChanged(int speed) override;
    void SeePreview(bool on) override;
    void erodeTerrain() override;
    void wiredPreview(bool on) override;
    void waterWalking_toggled(bool on) override;
    void craters_toggled(bool on) override;
    void bengala_toggled(bool on) override;
    void deathTouch_toggled(bool on) override;
    void DynamicTime_toggled(bool on) override;
    void randomGeo_toggled(bool on) override;
    void Fog_toggled(bool on) override;
    void water_toggled(bool on) override;
    void fileExit() override;
    void helpAbout() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    LevelDocument &level() const;
    BackgroundNode &environment() const;

    /// The first 16 players, which are those the window shows.
    QList<CharacterNode *> players() const;
    CharacterNode &selectedPlayer() const;
    bool counts(const CharacterNode &player) const;
    void refreshCounts();
    void refreshPlayerPanel();
    void showTeamDots();

    void makeMap(int dimension, int accuracy);
    void openLevel(const QString &fileName);
    void warnOfTeams();

    /// Shows a size in the two labels; a number that has no name leaves its label.
    void showDimension(int dimension);
    void showAccuracy(int accuracy);

    void readBackOptions();
    void readBackDayTime();
    void readBackGravity();
    void readBackTextures();
    void readBackStartPositions();
    void showColors();

    void connectHistory();
    void showLevelUnchanged();

    std::unique_ptr<LevelHistory> history; ///< Made by init().
    QString lastLevel;                     ///< The file opened or saved last; empty after the start.

    int shownDimension = 0; ///< What the two labels name, for a change of language.
    int shownAccuracy = 0;
};
