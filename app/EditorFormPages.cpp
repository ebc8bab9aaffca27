// The four tab pages of the form: widgets, layouts and initial states.
#include "app/EditorForm.h"

#include "app/ColorSwatch.h"
#include "app/ElidedLabel.h"
#include "app/PictureBox.h"
#include "resources/Icons.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

template <typename Widget>
Widget *named(QWidget *parent, const char *name) {
    auto *const widget = new Widget(parent);
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QCheckBox *checkBox(QWidget *page, const char *name, bool checked) {
    auto *const box = named<QCheckBox>(page, name);
    box->setChecked(checked);
    return box;
}

QSpinBox *spinBox(QWidget *page, const char *name, int lowest, int highest, int value) {
    auto *const box = named<QSpinBox>(page, name);
    box->setRange(lowest, highest);
    box->setValue(value);
    return box;
}

/// A page of the tab widget, with its layout.
QVBoxLayout *addPage(QTabWidget &tabs, QWidget *&page, const char *name) {
    page = named<QWidget>(&tabs, name);
    auto *const layout = new QVBoxLayout(page);
    layout->setContentsMargins(11, 11, 11, 11);
    layout->setSpacing(6);
    tabs.addTab(page, QString());
    return layout;
}

/// A label and, to its right, what it names.
void addRow(QBoxLayout &pageLayout, QLabel *label, QWidget *control) {
    auto *const row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(label);
    row->addWidget(control, 1);
    label->setBuddy(control);
    pageLayout.addLayout(row);
}

} // namespace

void EditorForm::buildGeographyPage() {
    QVBoxLayout &layout = *addPage(*MainTab, tab, "tab");
    textLabel1 = named<QLabel>(tab, "textLabel1");
    TerrainColor = named<QPushButton>(tab, "TerrainColor");
    addRow(layout, textLabel1, TerrainColor);
    textLabel2 = named<QLabel>(tab, "textLabel2");
    SunColor = named<QPushButton>(tab, "SunColor");
    addRow(layout, textLabel2, SunColor);
    textLabel2_2 = named<QLabel>(tab, "textLabel2_2");
    WaterColor = named<QPushButton>(tab, "WaterColor");
    addRow(layout, textLabel2_2, WaterColor);
    for (QPushButton *const button : {TerrainColor, SunColor, WaterColor}) {
        button->setIconSize(colorSwatchSize);
    }
    textLabel3 = named<QLabel>(tab, "textLabel3");
    dayTime = named<QComboBox>(tab, "dayTime");
    addRow(layout, textLabel3, dayTime);
    layout.addSpacing(6);

    Fog = checkBox(tab, "Fog", true);
    water = checkBox(tab, "water", true);
    randomGeo = checkBox(tab, "randomGeo", false);
    for (QCheckBox *const box : {Fog, water, randomGeo}) {
        layout.addWidget(box);
    }
    layout.addSpacing(6);

    textLabel1_5 = named<QLabel>(tab, "textLabel1_5");
    DimensionTextLabel = named<QLabel>(tab, "DimensionTextLabel");
    addRow(layout, textLabel1_5, DimensionTextLabel);
    textLabel3_3 = named<QLabel>(tab, "textLabel3_3");
    AccuracyTextLabel = named<QLabel>(tab, "AccuracyTextLabel");
    addRow(layout, textLabel3_3, AccuracyTextLabel);
    layout.addSpacing(6);

    SmoothTerrain = named<QPushButton>(tab, "SmoothTerrain");
    layout.addWidget(SmoothTerrain);
    layout.addStretch();
}

void EditorForm::buildTexturesPage() {
    QVBoxLayout &layout = *addPage(*MainTab, TabPage, "TabPage");
    const auto addGroup = [this, &layout](QGroupBox *&group, const char *groupName, QComboBox *&box,
                                          const char *boxName, const char *pictureFile) {
        group = named<QGroupBox>(TabPage, groupName);
        auto *const inside = new QVBoxLayout(group);
        inside->setContentsMargins(11, 6, 11, 6);
        auto *const pictures = named<PictureBox>(group, boxName);
        pictures->pictureFile = QLatin1String(pictureFile);
        box = pictures;
        inside->addWidget(box);
        layout.addWidget(group);
    };
    constexpr const char *texture = "./data/textures/%1.jpg";
    addGroup(TerrainTextureGroup, "TerrainTextureGroup", TerrainTextureType, "TerrainTextureType", texture);
    addGroup(SkyTextureGroup, "SkyTextureGroup", SkyTextureType, "SkyTextureType",
             "./data/CubeMap/%1/mount_negz.jpg");
    addGroup(WaterTextureGroup, "WaterTextureGroup", waterTextureType, "waterTextureType", texture);
    addGroup(birdTextureGroup, "birdTextureGroup", birdTextureType, "birdTextureType", texture);
    static_cast<PictureBox &>(*birdTextureType).wholePictures = true;
    layout.addStretch();
}

void EditorForm::buildPlayersPage() {
    QVBoxLayout &layout = *addPage(*MainTab, TabPage_2, "TabPage_2");
    CharID = named<QComboBox>(TabPage_2, "CharID");
    activeNow = checkBox(TabPage_2, "activeNow", false);
    EditChar = named<QPushButton>(TabPage_2, "EditChar");
    EditChar->setIcon(programIcon(QStringLiteral("edit.bmp")));
    EditChar->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
    auto *const selection = new QGridLayout;
    selection->setSpacing(6);
    selection->setColumnStretch(0, 1);
    selection->addWidget(CharID, 0, 0);
    selection->addWidget(activeNow, 1, 0);
    selection->addWidget(EditChar, 0, 1, 2, 1);
    layout.addLayout(selection);

    Place = named<QPushButton>(TabPage_2, "Place");
    Place->setCheckable(true);
    layout.addWidget(Place);
    buildCurrentPlayerGroup(layout);
    randomStart = checkBox(TabPage_2, "randomStart", false);
    layout.addWidget(randomStart);

    textLabel11 = named<QLabel>(TabPage_2, "textLabel11");
    numPlayer = spinBox(TabPage_2, "numPlayer", 0, 16, 0);
    addRow(layout, textLabel11, numPlayer);
    textLabel12 = named<QLabel>(TabPage_2, "textLabel12");
    numTeams = spinBox(TabPage_2, "numTeams", 0, 4, 0);
    addRow(layout, textLabel12, numTeams);
    for (QSpinBox *const count : {numPlayer, numTeams}) {
        count->setEnabled(false);
        count->setButtonSymbols(QAbstractSpinBox::NoButtons);
    }
    showCountsPlainly();
    layout.addStretch();
}

/// They are read, never edited: in the ink of what can be, or they would be hard to read.
void EditorForm::showCountsPlainly() {
    if (numTeams == nullptr) {
        return; // The toolkit announces the palette before the pages are there.
    }
    for (QSpinBox *const count : {numPlayer, numTeams}) {
        QPalette inks = count->palette();
        inks.setColor(QPalette::Disabled, QPalette::Text, palette().color(QPalette::Active, QPalette::Text));
        count->setPalette(inks);
    }
}

void EditorForm::buildCurrentPlayerGroup(QBoxLayout &pageLayout) {
    groupBox4 = named<QGroupBox>(TabPage_2, "groupBox4");
    auto *const grid = new QGridLayout(groupBox4);
    grid->setContentsMargins(11, 6, 11, 6);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    int row = 0;
    const auto addLine = [this, grid, &row](QLabel *&caption, const char *captionName, QLabel *&value,
                                            const char *valueName) {
        caption = named<QLabel>(groupBox4, captionName);
        value = named<ElidedLabel>(groupBox4, valueName);
        // A player's name is user text: no markup, and cut off rather than widening the panel.
        value->setTextFormat(Qt::PlainText);
        value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        caption->setBuddy(value);
        grid->addWidget(caption, row, 0);
        grid->addWidget(value, row, 1);
        ++row;
    };
    addLine(textLabel1_2, "textLabel1_2", textLabelName, "textLabelName");
    addLine(textLabel1_3, "textLabel1_3", textLabelCharacter, "textLabelCharacter");
    addLine(textLabel2_3, "textLabel2_3", textLabelWeapon, "textLabelWeapon");
    addLine(textLabel3_2, "textLabel3_2", textLabelTeam, "textLabelTeam");
    addLine(textLabel4, "textLabel4", textLabelPlaced, "textLabelPlaced");
    addLine(textLabel9, "textLabel9", textLabelWait, "textLabelWait");
    pageLayout.addWidget(groupBox4);
}

void EditorForm::showPlayerName(const QString &name) {
    static_cast<ElidedLabel &>(*textLabelName).showText(name);
}

void EditorForm::buildOptionsPage() {
    QVBoxLayout &layout = *addPage(*MainTab, TabPage_3, "TabPage_3");
    gravity_1 = named<QLabel>(TabPage_3, "gravity_1");
    gravity = named<QComboBox>(TabPage_3, "gravity");
    addRow(layout, gravity_1, gravity);
    sunMoving = named<QLabel>(TabPage_3, "sunMoving");
    sunSpeed = spinBox(TabPage_3, "sunSpeed", 2, 18, 15);
    addRow(layout, sunMoving, sunSpeed);
    textLabel1_4 = named<QLabel>(TabPage_3, "textLabel1_4");
    birdsNumber = spinBox(TabPage_3, "birdsNumber", 0, 15, 3);
    addRow(layout, textLabel1_4, birdsNumber);
    layout.addSpacing(6);

    waterWalking = checkBox(TabPage_3, "waterWalking", true);
    craters = checkBox(TabPage_3, "craters", true);
    bengala = checkBox(TabPage_3, "bengala", true);
    deathTouch = checkBox(TabPage_3, "deathTouch", true);
    DynamicTime = checkBox(TabPage_3, "DynamicTime", true);
    for (QCheckBox *const box : {waterWalking, craters, bengala, deathTouch, DynamicTime}) {
        layout.addWidget(box);
    }
    layout.addStretch();
}
