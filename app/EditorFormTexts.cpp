// Every text of the form, in the translation context "editorMain".
#include "app/EditorForm.h"

#include "map/GLMapWidget.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <algorithm>
#include <initializer_list>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(editorMain)
};

template <typename Widget>
void setTexts(Widget *widget, const QString &text, const QString &toolTip = {}) {
    widget->setText(text);
    widget->setToolTip(toolTip);
}

/// Refills a combo box. Each item keeps its untranslated text as data.
void setItems(QComboBox *box, std::initializer_list<const char *> items, int current = 0) {
    box->clear();
    for (const char *const item : items) {
        box->addItem(Texts::tr(item), QString::fromLatin1(item));
    }
    box->setCurrentIndex(current);
}

/// The width of the widest, so that the controls to their right stand in one column.
void alignWidths(std::initializer_list<QLabel *> labels) {
    int widest = 0;
    for (QLabel *const label : labels) {
        label->setMinimumWidth(0);
        widest = std::max(widest, label->sizeHint().width());
    }
    for (QLabel *const label : labels) {
        label->setMinimumWidth(widest);
    }
}

} // namespace

void EditorForm::languageChange() {
    setWindowTitle(Texts::tr("Game editor"));
    MainTab->setTabText(MainTab->indexOf(tab), Texts::tr("Geography"));
    MainTab->setTabText(MainTab->indexOf(TabPage), Texts::tr("Textures"));
    MainTab->setTabText(MainTab->indexOf(TabPage_2), Texts::tr("Players"));
    MainTab->setTabText(MainTab->indexOf(TabPage_3), Texts::tr("In-Game Options"));
    setGeographyTexts();
    setTextureTexts();
    setPlayerTexts();
    setOptionTexts();
    setActionTexts();
    nameControls();
    alignLabels();
}

void EditorForm::setGeographyTexts() {
    setTexts(textLabel1, Texts::tr("Ground color"), Texts::tr("terrain color"));
    setTexts(TerrainColor, Texts::tr("..."));
    setTexts(textLabel2, Texts::tr("Sun color"), Texts::tr("sunlight color"));
    setTexts(SunColor, Texts::tr("..."));
    setTexts(textLabel2_2, Texts::tr("Water color"), Texts::tr("water color"));
    setTexts(WaterColor, Texts::tr("..."));
    setTexts(textLabel3, Texts::tr("Day time"), Texts::tr("in which part of the day the battle starts"));
    setItems(dayTime,
             {QT_TRANSLATE_NOOP("editorMain", "sunrise"), QT_TRANSLATE_NOOP("editorMain", "morning"),
              QT_TRANSLATE_NOOP("editorMain", "noon"), QT_TRANSLATE_NOOP("editorMain", "afternoon"),
              QT_TRANSLATE_NOOP("editorMain", "sunset"), QT_TRANSLATE_NOOP("editorMain", "evening"),
              QT_TRANSLATE_NOOP("editorMain", "night")},
             2);
    setTexts(Fog, Texts::tr("Fog"), Texts::tr("fog on battle field"));
    setTexts(water, Texts::tr("Water"), Texts::tr("underground water plan"));
    setTexts(randomGeo, Texts::tr("Random geography"));
    setTexts(textLabel1_5, Texts::tr("Map Dimension:"));
    setTexts(DimensionTextLabel, Texts::tr("none"));
    setTexts(textLabel3_3, Texts::tr("Ground Accuracy"));
    setTexts(AccuracyTextLabel, Texts::tr("none"));
    setTexts(SmoothTerrain, Texts::tr("Erode\nTerrain"), Texts::tr("ground erosion"));
}

void EditorForm::setTextureTexts() {
    TerrainTextureGroup->setTitle(Texts::tr("Ground"));
    setItems(TerrainTextureType,
             {QT_TRANSLATE_NOOP("editorMain", "grass1"), QT_TRANSLATE_NOOP("editorMain", "grass2"),
              QT_TRANSLATE_NOOP("editorMain", "grass3"), QT_TRANSLATE_NOOP("editorMain", "desert1"),
              QT_TRANSLATE_NOOP("editorMain", "desert2"), QT_TRANSLATE_NOOP("editorMain", "desert3"),
              QT_TRANSLATE_NOOP("editorMain", "sand"), QT_TRANSLATE_NOOP("editorMain", "vulcanic1"),
              QT_TRANSLATE_NOOP("editorMain", "vulcanic2"), QT_TRANSLATE_NOOP("editorMain", "snow1"),
              QT_TRANSLATE_NOOP("editorMain", "snow2"), QT_TRANSLATE_NOOP("editorMain", "daffodils")});
    SkyTextureGroup->setTitle(Texts::tr("Sky"));
    setItems(SkyTextureType,
             {QT_TRANSLATE_NOOP("editorMain", "clean1"), QT_TRANSLATE_NOOP("editorMain", "clean2"),
              QT_TRANSLATE_NOOP("editorMain", "cloud1"), QT_TRANSLATE_NOOP("editorMain", "cloud2"),
              QT_TRANSLATE_NOOP("editorMain", "cirri")});
    WaterTextureGroup->setTitle(Texts::tr("Water"));
    setItems(waterTextureType,
             {QT_TRANSLATE_NOOP("editorMain", "water1"), QT_TRANSLATE_NOOP("editorMain", "water2"),
              QT_TRANSLATE_NOOP("editorMain", "water3")});
    birdTextureGroup->setTitle(Texts::tr("Birds"));
    setItems(birdTextureType,
             {QT_TRANSLATE_NOOP("editorMain", "parrot"), QT_TRANSLATE_NOOP("editorMain", "eagle1"),
              QT_TRANSLATE_NOOP("editorMain", "eagle2")});
}

void EditorForm::setPlayerTexts() {
    setItems(CharID, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15", "16"});
    setTexts(activeNow, Texts::tr("active in game"));
    setTexts(EditChar, Texts::tr("Edit"), Texts::tr("Edit player"));
    setTexts(Place, Texts::tr("Place this player"));
    groupBox4->setTitle(Texts::tr("current Player"));
    setTexts(textLabel1_2, Texts::tr("Name:"));
    setTexts(textLabelName, Texts::tr("None"));
    setTexts(textLabel1_3, Texts::tr("Character"));
    setTexts(textLabelCharacter, Texts::tr("None"));
    setTexts(textLabel2_3, Texts::tr("Weapon:"));
    setTexts(textLabelWeapon, Texts::tr("None"));
    setTexts(textLabel3_2, Texts::tr("Team"));
    setTexts(textLabelTeam, Texts::tr("None"));
    setTexts(textLabel4, Texts::tr("Placed"));
    setTexts(textLabelPlaced, Texts::tr("No"));
    setTexts(textLabel9, Texts::tr("Wait For:"));
    setTexts(textLabelWait, Texts::tr("None"));
    setTexts(randomStart, Texts::tr("Random start position"));
    setTexts(textLabel11, Texts::tr("Active players"));
    setTexts(textLabel12, Texts::tr("Active teams"));
}

void EditorForm::setOptionTexts() {
    setTexts(gravity_1, Texts::tr("Gravity"), Texts::tr("gravity on the battlefield"));
    setItems(gravity,
             {QT_TRANSLATE_NOOP("editorMain", "low"), QT_TRANSLATE_NOOP("editorMain", "normal"),
              QT_TRANSLATE_NOOP("editorMain", "high")},
             1);
    setTexts(sunMoving, Texts::tr("Sun speed"), Texts::tr("sun moving speed"));
    setTexts(textLabel1_4, Texts::tr("Birds number"));
    setTexts(waterWalking, Texts::tr("In-Water walking"), Texts::tr("fighters can walk in the water"));
    setTexts(craters, Texts::tr("Craters"), Texts::tr("holes affect terrain after explosions"));
    setTexts(bengala, Texts::tr("Bengala missile"),
             Texts::tr("if selected, bullet lights up all the scene in relation with its height"));
    setTexts(deathTouch, Texts::tr("Death touch"),
             Texts::tr("enemies can be killed touching them "
                       "(raccomended for good characters characteristics balancing)"));
    setTexts(DynamicTime, Texts::tr("Time passing"),
             Texts::tr("sun changes its position during the battle time"));
}

void EditorForm::setActionTexts() {
    const auto set = [](QAction *action, const QString &text, const QString &menuText,
                        const QString &accelerator = {}) {
        action->setText(menuText);
        action->setIconText(text);
        action->setShortcut(QKeySequence(accelerator));
    };
    set(fileNewAction, Texts::tr("New"), Texts::tr("&New"), Texts::tr("Ctrl+N"));
    set(fileOpenAction, Texts::tr("Open"), Texts::tr("&Open..."), Texts::tr("Ctrl+O"));
    set(fileSaveAction, Texts::tr("Save"), Texts::tr("&Save"), Texts::tr("Ctrl+S"));
    set(fileExitAction, Texts::tr("Exit"), Texts::tr("E&xit"));
    set(helpAboutAction, Texts::tr("About"), Texts::tr("&About"));
    setTexts(Preview, Texts::tr("Action"), Texts::tr("Preview"));
    setTexts(Wired, Texts::tr("Action"), Texts::tr("Wired"));
    setTexts(centerTrack, Texts::tr("Action"), Texts::tr("Center the map"));
    toolBar->setWindowTitle(Texts::tr("Tools"));
    fileMenu->setTitle(Texts::tr("&File"));
    helpMenu->setTitle(Texts::tr("&Help"));
}

/// Assistive technology reads these; the controls of labelled rows have no text of their own.
void EditorForm::nameControls() {
    for (QAction *const action :
         {fileNewAction, fileOpenAction, fileSaveAction, Preview, Wired, centerTrack}) {
        toolBar->widgetForAction(action)->setAccessibleName(action->toolTip());
    }
    MainTab->tabBar()->setAccessibleName(Texts::tr("Settings"));
    mapView->setAccessibleName(Texts::tr("Map"));
    TerrainColor->setAccessibleName(textLabel1->text());
    SunColor->setAccessibleName(textLabel2->text());
    WaterColor->setAccessibleName(textLabel2_2->text());
    dayTime->setAccessibleName(textLabel3->text());
    SmoothTerrain->setAccessibleName(Texts::tr("Erode terrain"));
    TerrainTextureType->setAccessibleName(TerrainTextureGroup->title());
    SkyTextureType->setAccessibleName(SkyTextureGroup->title());
    waterTextureType->setAccessibleName(WaterTextureGroup->title());
    birdTextureType->setAccessibleName(birdTextureGroup->title());
    CharID->setAccessibleName(Texts::tr("Player"));
    numPlayer->setAccessibleName(textLabel11->text());
    numTeams->setAccessibleName(textLabel12->text());
    gravity->setAccessibleName(gravity_1->text());
    sunSpeed->setAccessibleName(sunMoving->text());
    birdsNumber->setAccessibleName(textLabel1_4->text());
}

void EditorForm::alignLabels() {
    if (textLabel1_4 == nullptr) {
        return; // The toolkit announces the style before the pages are there.
    }
    alignWidths({textLabel1, textLabel2, textLabel2_2, textLabel3, textLabel1_5, textLabel3_3});
    alignWidths({textLabel11, textLabel12});
    alignWidths({gravity_1, sunMoving, textLabel1_4});
}
