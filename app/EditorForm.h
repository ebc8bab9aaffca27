#pragma once

#include <QMainWindow>

class GLMapWidget;
class QAction;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QMenu;
class QMenuBar;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QToolBar;

/// The main window's form: its widgets, texts and connections. What the controls do is left to a
/// derived class. Every widget is a child of the window and is public under its object name.
class EditorForm : public QMainWindow {
    Q_OBJECT

public:
    /// An empty name stands for "editorMain".
    explicit EditorForm(QWidget *parent = nullptr, const QString &name = {},
                        Qt::WindowFlags flags = Qt::Window);

    QTabWidget *MainTab = nullptr;
    GLMapWidget *mapView = nullptr;

    QWidget *tab = nullptr; ///< The page "Geography".
    QLabel *textLabel1 = nullptr;
    QPushButton *TerrainColor = nullptr;
    QLabel *textLabel2 = nullptr;
    QPushButton *SunColor = nullptr;
    QLabel *textLabel2_2 = nullptr;
    QPushButton *WaterColor = nullptr;
    QLabel *textLabel3 = nullptr;
    QComboBox *dayTime = nullptr;
    QCheckBox *Fog = nullptr;
    QCheckBox *water = nullptr;
    QCheckBox *randomGeo = nullptr;
    QLabel *textLabel1_5 = nullptr;
    QLabel *DimensionTextLabel = nullptr;
    QLabel *textLabel3_3 = nullptr;
    QLabel *AccuracyTextLabel = nullptr;
    QPushButton *SmoothTerrain = nullptr;

    QWidget *TabPage = nullptr; ///< The page "Textures".
    QGroupBox *TerrainTextureGroup = nullptr;
    QComboBox *TerrainTextureType = nullptr;
    QGroupBox *SkyTextureGroup = nullptr;
    QComboBox *SkyTextureType = nullptr;
    QGroupBox *WaterTextureGroup = nullptr;
    QComboBox *waterTextureType = nullptr;
    QGroupBox *birdTextureGroup = nullptr;
    QComboBox *birdTextureType = nullptr;

    QWidget *TabPage_2 = nullptr; ///< The page "Players".
    QComboBox *CharID = nullptr;
    QCheckBox *activeNow = nullptr;
    QPushButton *EditChar = nullptr;
    QPushButton *Place = nullptr;
    QGroupBox *groupBox4 = nullptr;
    QLabel *textLabel1_2 = nullptr;
    QLabel *textLabelName = nullptr;
    QLabel *textLabel1_3 = nullptr;
    QLabel *textLabelCharacter = nullptr;
    QLabel *textLabel2_3 = nullptr;
    QLabel *textLabelWeapon = nullptr;
    QLabel *textLabel3_2 = nullptr;
    QLabel *textLabelTeam = nullptr;
    QLabel *textLabel4 = nullptr;
    QLabel *textLabelPlaced = nullptr;
    QLabel *textLabel9 = nullptr;
    QLabel *textLabelWait = nullptr;
    QCheckBox *randomStart = nullptr;
    QLabel *textLabel11 = nullptr;
    QSpinBox *numPlayer = nullptr;
    QLabel *textLabel12 = nullptr;
    QSpinBox *numTeams = nullptr;

    QWidget *TabPage_3 = nullptr; ///< The page "In-Game Options".
    QLabel *gravity_1 = nullptr;
    QComboBox *gravity = nullptr;
    QLabel *sunMoving = nullptr;
    QSpinBox *sunSpeed = nullptr;
    QLabel *textLabel1_4 = nullptr;
    QSpinBox *birdsNumber = nullptr;
    QCheckBox *waterWalking = nullptr;
    QCheckBox *craters = nullptr;
    QCheckBox *bengala = nullptr;
    QCheckBox *deathTouch = nullptr;
    QCheckBox *DynamicTime = nullptr;

    QMenuBar *MenuBar = nullptr;
    QMenu *fileMenu = nullptr;
    QMenu *helpMenu = nullptr;
    QToolBar *toolBar = nullptr;
    QAction *fileNewAction = nullptr;
    QAction *fileOpenAction = nullptr;
    QAction *fileSaveAction = nullptr;
    QAction *fileExitAction = nullptr;
    QAction *helpAboutAction = nullptr;
    QAction *Preview = nullptr;
    QAction *Wired = nullptr;
    QAction *centerTrack = nullptr;

    /// Loads the file "default" of the working directory.
    virtual void loadStartLevel() = 0;

    /// Fills every control from the level.
    virtual void readBackLevel() = 0;

    virtual int countActivePlayers() = 0;
    virtual int countActiveTeams() = 0;

public slots:
    virtual void fileNew() = 0;
    virtual void fileOpen() = 0;
    virtual void fileSave() = 0;
    virtual void EditPlayer() = 0;
    virtual void terrainColor() = 0;
    virtual void waterColor() = 0;
    virtual void sunColor() = 0;
    virtual void sunAngle() = 0;
    virtual void gravity_activated(const QString &text) = 0;
    virtual void TerrainTextureType_activated(const QString &text) = 0;
    virtual void SkyTextureType_activated(const QString &text) = 0;
    virtual void birdTextureType_activated(const QString &text) = 0;
    virtual void waterTextureType_activated(const QString &text) = 0;
    virtual void charID_activated(int index) = 0;
    virtual void activeNow_toggled(bool on) = 0;
    virtual void randomStart_toggled(bool on) = 0;
    virtual void Place_clicked() = 0;
    virtual void birdsNumber_valueChanged(int number) = 0;
    virtual void updateTrackBallCenter_() = 0;
    virtual void sunSpeed_valueChanged(int speed) = 0;
    virtual void SeePreview(bool on) = 0;
    virtual void erodeTerrain() = 0;
    virtual void wiredPreview(bool on) = 0;
    virtual void waterWalking_toggled(bool on) = 0;
    virtual void craters_toggled(bool on) = 0;
    virtual void bengala_toggled(bool on) = 0;
    virtual void deathTouch_toggled(bool on) = 0;
    virtual void DynamicTime_toggled(bool on) = 0;
    virtual void randomGeo_toggled(bool on) = 0;
    virtual void Fog_toggled(bool on) = 0;
    virtual void water_toggled(bool on) = 0;
    virtual void fileExit() = 0;
    virtual void helpAbout() = 0;

    /// Sets every visible text in the application's language; the combo boxes start anew.
    virtual void languageChange();

protected:
    void changeEvent(QEvent *event) override;

    /// Shows the current player's name, as much of it as there is room for.
    void showPlayerName(const QString &name);

private:
    void buildActions();
    void buildCentralWidget();
    void buildMenus();
    void buildToolBar();
    void buildGeographyPage();
    void buildTexturesPage();
    void buildPlayersPage();
    void buildCurrentPlayerGroup(QBoxLayout &pageLayout);
    void buildOptionsPage();
    QList<QWidget *> controlsInReadingOrder() const;
    void setTabOrder();

    void setActionTexts();
    void setGeographyTexts();
    void setTextureTexts();
    void setPlayerTexts();
    void setOptionTexts();
    void nameControls();
    void alignLabels();
    void showCountsPlainly();

    void connectActions();
    void connectGeography();
    void connectTextures();
    void connectPlayers();
    void connectOptions();
    void connectControlsToEachOther();
};
