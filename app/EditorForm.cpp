#include "app/EditorForm.h"

#include "app/WheelGuard.h"
#include "map/GLMapWidget.h"
#include "resources/Icons.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

EditorForm::EditorForm(QWidget *parent, const QString &name, Qt::WindowFlags flags)
    : QMainWindow(parent, flags) {
    statusBar();
    setObjectName(name.isEmpty() ? QStringLiteral("editorMain") : name);
    setEnabled(true);
    setWindowIcon(programIcon(QStringLiteral("iconEditor.png")));

    buildActions();
    buildToolBar();
    buildMenus();
    buildCentralWidget();
    setTabOrder();

    EditorForm::languageChange();
    resize(QSize(602, 719).expandedTo(minimumSizeHint()));

    connectActions();
    connectGeography();
    connectTextures();
    connectPlayers();
    connectOptions();
    connectControlsToEachOther();
    guardFromWheel(*this);
    // Else the tool bar's first button, "New", would have it.
    TerrainColor->setFocus();
}

void EditorForm::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        languageChange();
    } else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        alignLabels();
    } else if (event->type() == QEvent::PaletteChange) {
        showCountsPlainly();
    }
}

void EditorForm::buildCentralWidget() {
    auto *const center = new QWidget(this);
    center->setObjectName(QStringLiteral("qt_central_widget"));
    setCentralWidget(center);
    auto *const layout = new QHBoxLayout(center);
    layout->setObjectName(QStringLiteral("editorMainLayout"));
    layout->setContentsMargins(11, 11, 11, 11);
    layout->setSpacing(6);

    MainTab = new QTabWidget(center);
    MainTab->setObjectName(QStringLiteral("MainTab"));
    MainTab->setUsesScrollButtons(false); // All four pages stay in sight.
    // All room that is left belongs to the map.
    MainTab->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    buildGeographyPage();
    buildTexturesPage();
    buildPlayersPage();
    buildOptionsPage();
    layout->addWidget(MainTab);

    mapView = new GLMapWidget(center, QStringLiteral("mapView"));
    mapView->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    mapView->setMinimumSize(300, 300);
    layout->addWidget(mapView, 1);
}

void EditorForm::buildActions() {
    const auto action = [this](const char *name, const char *icon) {
        auto *const made = new QAction(this);
        made->setObjectName(QLatin1String(name));
        made->setIcon(programIcon(QLatin1String(icon)));
        return made;
    };
    fileNewAction = action("fileNewAction", "new.bmp");
    fileOpenAction = action("fileOpenAction", "open.bmp");
    fileSaveAction = action("fileSaveAction", "save.bmp");
    fileExitAction = action("fileExitAction", "man.bmp");
    helpAboutAction = action("helpAboutAction", "iconEditor.png");
    Preview = action("Preview", "preview.bmp");
    Preview->setCheckable(true);
    Wired = action("Wired", "wired.bmp");
    Wired->setCheckable(true);
    Wired->setVisible(false);
    centerTrack = action("centerTrack", "center.bmp");
    centerTrack->setVisible(false);
}

void EditorForm::buildToolBar() {
    toolBar = new QToolBar(this);
    toolBar->setObjectName(QStringLiteral("toolBar"));
    toolBar->setIconSize(QSize(22, 22));
    addToolBar(Qt::TopToolBarArea, toolBar);
    // No menu could bring back a tool bar that was hidden.
    toolBar->toggleViewAction()->setEnabled(false);
    toolBar->toggleViewAction()->setVisible(false);
    toolBar->addActions({fileNewAction, fileOpenAction, fileSaveAction});
    toolBar->addSeparator();
    toolBar->addActions({Preview, Wired, centerTrack});
    // The last three stand in no menu: the keyboard reaches them here.
    for (QAction *const action : toolBar->actions()) {
        toolBar->widgetForAction(action)->setFocusPolicy(action->isSeparator() ? Qt::NoFocus : Qt::TabFocus);
    }
}

void EditorForm::buildMenus() {
    MenuBar = menuBar();
    MenuBar->setObjectName(QStringLiteral("MenuBar"));
    fileMenu = MenuBar->addMenu(QString());
    fileMenu->setObjectName(QStringLiteral("fileMenu"));
    fileMenu->addActions({fileNewAction, fileOpenAction, fileSaveAction});
    fileMenu->addSeparator();
    fileMenu->addSeparator();
    fileMenu->addAction(fileExitAction);
    helpMenu = MenuBar->addMenu(QString());
    helpMenu->setObjectName(QStringLiteral("helpMenu"));
    helpMenu->addSeparator();
    helpMenu->addAction(helpAboutAction);
}

QList<QWidget *> EditorForm::controlsInReadingOrder() const {
    QList<QWidget *> controls;
    for (QAction *const action :
         {fileNewAction, fileOpenAction, fileSaveAction, Preview, Wired, centerTrack}) {
        controls.append(toolBar->widgetForAction(action));
    }
    controls.append(MainTab);
    controls.append({TerrainColor, SunColor, WaterColor, dayTime, Fog, water, randomGeo, SmoothTerrain});
    controls.append({TerrainTextureType, SkyTextureType, waterTextureType, birdTextureType});
    controls.append({CharID, activeNow, EditChar, Place, randomStart, numPlayer, numTeams});
    controls.append(
        {gravity, sunSpeed, birdsNumber, waterWalking, craters, bengala, deathTouch, DynamicTime});
    controls.append(mapView);
    return controls;
}

void EditorForm::setTabOrder() {
    const QList<QWidget *> controls = controlsInReadingOrder();
    for (qsizetype i = 1; i < controls.size(); ++i) {
        QWidget::setTabOrder(controls[i - 1], controls[i]);
    }
}

void EditorForm::connectActions() {
    connect(fileNewAction, &QAction::triggered, this, &EditorForm::fileNew);
    connect(fileOpenAction, &QAction::triggered, this, &EditorForm::fileOpen);
    connect(fileSaveAction, &QAction::triggered, this, &EditorForm::fileSave);
    connect(fileExitAction, &QAction::triggered, this, &EditorForm::fileExit);
    connect(helpAboutAction, &QAction::triggered, this, &EditorForm::helpAbout);
    connect(Preview, &QAction::toggled, this, &EditorForm::SeePreview);
    connect(Wired, &QAction::toggled, this, &EditorForm::wiredPreview);
    connect(centerTrack, &QAction::triggered, this, &EditorForm::updateTrackBallCenter_);
}
