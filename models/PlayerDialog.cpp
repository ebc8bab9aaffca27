#include "models/PlayerDialog.h"

#include "models/CIGLPlayerWidget.h"
#include "models/CharacterCatalogue.h"
#include "resources/Icons.h"
#include "scene/CharacterNode.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace {

constexpr int standardWeapon = 2;

QString text(const char *source) {
    return QApplication::translate("PlayerDialog", source);
}

template <typename Names>
void fill(QComboBox &box, const Names &names) {
    box.clear();
    for (const char *name : names) {
        box.addItem(text(name));
    }
}

CharacterFiles chosenFiles(const PlayerDialog &dialog) {
    return characterFiles(dialog.ModelBox->currentText(), dialog.TeamBox->currentText(),
                          dialog.WeaponBox->currentText());
}

std::string encoded(const QString &path) {
    return QFile::encodeName(path).toStdString();
}

template <typename Widget>
Widget *make(QWidget *parent, const char *name) {
    auto *widget = new Widget(parent);
    widget->setObjectName(QLatin1String(name));
    return widget;
}

template <typename Layout>
Layout *makeLayout(const char *name, int margin = 0) {
    auto *layout = new Layout;
    layout->setObjectName(QLatin1String(name));
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(6);
    return layout;
}

} // namespace

PlayerDialog::PlayerDialog(QWidget *parent, const QString &name, bool modal, Qt::WindowFlags flags)
    : QDialog(parent, flags) {
    setObjectName(name.isEmpty() ? QStringLiteral("PlayerDialog") : name);
    setModal(modal);
    setSizeGripEnabled(true);
    setWindowIcon(programIcon(QStringLiteral("man.bmp")));
    makeControls();
    makePreview();
    layOut();
    languageChange();
    resize(minimumSizeHint().expandedTo(QSize(476, 308)));
    connectControls();
    Name->setFocus();
    Name->selectAll();
}

void PlayerDialog::makeControls() {
    textLabel1 = make<QLabel>(this, "textLabel1");
    textLabel2 = make<QLabel>(this, "textLabel2");
    textLabel3 = make<QLabel>(this, "textLabel3");
    textLabel4 = make<QLabel>(this, "textLabel4");
    textLabel5 = make<QLabel>(this, "textLabel5");
    Name = make<QLineEdit>(this, "Name");
    ModelBox = make<QComboBox>(this, "ModelBox");
    TeamBox = make<QComboBox>(this, "TeamBox");
    WeaponBox = make<QComboBox>(this, "WeaponBox");
    waitForBox = make<QSpinBox>(this, "waitForBox");
    waitForBox->setRange(0, 10);
    ifWait = make<QCheckBox>(this, "ifWait");
    buttonOk = make<QPushButton>(this, "buttonOk");
    buttonOk->setAutoDefault(true);
    buttonOk->setDefault(true);
    buttonCancel = make<QPushButton>(this, "buttonCancel");
    buttonCancel->setAutoDefault(true);
}

void PlayerDialog::makePreview() {
    PreviewPlayerWidget = new CIGLPlayerWidget(this, QStringLiteral("PreviewPlayerWidget"));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setVerticalStretch(4);
    PreviewPlayerWidget->setSizePolicy(policy);
    PreviewPlayerWidget->setMinimumSize(160, 160);
}

void PlayerDialog::layOut() {
    auto *column = makeLayout<QVBoxLayout>("layout7");
    column->addLayout(layOutControls());
    column->addSpacerItem(new QSpacerItem(20, 80, QSizePolicy::Minimum, QSizePolicy::Expanding));

    auto *row = makeLayout<QHBoxLayout>("layout8");
    row->addLayout(column);
    row->addWidget(PreviewPlayerWidget);

    auto *top = makeLayout<QVBoxLayout>("PlayerDialogLayout", 11);
    top->addLayout(row);
    top->addLayout(layOutButtons());
    setLayout(top);
}

QGridLayout *PlayerDialog::layOutControls() {
    auto *grid = makeLayout<QGridLayout>("layout6");
    int row = 0;
    const auto addRow = [&](QLabel *label, QWidget *control) {
        label->setBuddy(control);
        grid->addWidget(label, row, 0);
        grid->addWidget(control, row++, 1);
    };
    addRow(textLabel2, Name);
    addRow(textLabel3, ModelBox);
    addRow(textLabel4, TeamBox);
    addRow(textLabel5, WeaponBox);
    addRow(textLabel1, waitForBox);
    grid->addItem(new QSpacerItem(41, 20, QSizePolicy::Expanding, QSizePolicy::Minimum), row, 0);
    grid->addWidget(ifWait, row, 1);
    return grid;
}

QHBoxLayout *PlayerDialog::layOutButtons() {
    auto *buttons = makeLayout<QHBoxLayout>("Layout1");
    buttons->addSpacerItem(new QSpacerItem(20, 20, QSizePolicy::Expanding, QSizePolicy::Minimum));
    buttons->addWidget(buttonOk);
    buttons->addWidget(buttonCancel);
    return buttons;
}

void PlayerDialog::connectControls() {
    connect(buttonOk, &QPushButton::clicked, this, &PlayerDialog::accept);
    connect(buttonCancel, &QPushButton::clicked, this, &PlayerDialog::reject);
    connect(ModelBox, &QComboBox::textActivated, this, &PlayerDialog::ChangeModel);
    connect(TeamBox, &QComboBox::textActivated, this, &PlayerDialog::ChangeTeam);
    connect(WeaponBox, &QComboBox::textActivated, this, &PlayerDialog::ChangeWeapon);
    connect(ifWait, &QCheckBox::toggled, waitForBox, &QWidget::setDisabled);
    connect(ifWait, &QCheckBox::toggled, textLabel1, &QWidget::setDisabled);
}

void PlayerDialog::ChangeModel() {
    const CharacterFiles files = chosenFiles(*this);
    PreviewPlayerWidget->modelPath = encoded(files.model);
    PreviewPlayerWidget->modelSkinPath = encoded(files.modelSkin);
    PreviewPlayerWidget->weaponPath = encoded(files.weapon);
    PreviewPlayerWidget->weaponSkinPath = encoded(files.weaponSkin);
    PreviewPlayerWidget->reloadPending = true;
}

void PlayerDialog::ChangeTeam() {
    PreviewPlayerWidget->modelSkinPath = encoded(chosenFiles(*this).modelSkin);
    PreviewPlayerWidget->reloadPending = true;
}

void PlayerDialog::ChangeWeapon() {
    const CharacterFiles files = chosenFiles(*this);
    PreviewPlayerWidget->weaponPath = encoded(files.weapon);
    PreviewPlayerWidget->weaponSkinPath = encoded(files.weaponSkin);
    PreviewPlayerWidget->reloadPending = true;
}

void PlayerDialog::copyTo(CharacterNode &player) const {
    player.weapon = WeaponBox->currentText();
    player.weaponValue = weaponValues.at(static_cast<std::size_t>(WeaponBox->currentIndex()));
    player.modelIndex = ModelBox->currentIndex();
    player.model = ModelBox->currentText();
    player.team = TeamBox->currentText();
    player.name = Name->text();
    player.teamIndex = TeamBox->currentIndex();
    player.waitFor = ifWait->isChecked() ? CharacterNode::neverShoots : waitForBox->value();
}

void PlayerDialog::languageChange() {
    setWindowTitle(text(QT_TRANSLATE_NOOP("PlayerDialog", "Edit Player")));
    textLabel2->setText(text(QT_TRANSLATE_NOOP("PlayerDialog", "Name")));
    defaultName_ = text(QT_TRANSLATE_NOOP("PlayerDialog", "john doe"));
    Name->setText(defaultName_);
    textLabel3->setText(text(QT_TRANSLATE_NOOP("PlayerDialog", "Character")));
    textLabel4->setText(text(QT_TRANSLATE_NOOP("PlayerDialog", "Team")));
    textLabel5->setText(text(QT_TRANSLATE_NOOP("PlayerDialog", "Weapon")));
    textLabel1->setText(text(QT_TRANSLATE_NOOP("PlayerDialog", "Wait For")));
    ifWait->setText(text(QT_TRANSLATE_NOOP("PlayerDialog", "Never Shoot")));
    buttonOk->setText(text(QT_TRANSLATE_NOOP("PlayerDialog", "&OK")));
    buttonCancel->setText(text(QT_TRANSLATE_NOOP("PlayerDialog", "&Cancel")));
    // These are also names of files: they are looked up, but not marked as texts to translate.
    fill(*ModelBox, characterNames);
    fill(*TeamBox, teamNames);
    fill(*WeaponBox, weaponNames);
    WeaponBox->setCurrentIndex(standardWeapon);
}

void PlayerDialog::changeEvent(QEvent *event) {
    if (event->type() == QEvent::LanguageChange) {
        const int model = ModelBox->currentIndex();
        const int team = TeamBox->currentIndex();
        const int weapon = WeaponBox->currentIndex();
        const QString name = Name->text();
        const bool named = name != defaultName_;
        languageChange();
        ModelBox->setCurrentIndex(model);
        TeamBox->setCurrentIndex(team);
        WeaponBox->setCurrentIndex(weapon);
        if (named) {
            Name->setText(name);
        }
    }
    QDialog::changeEvent(event);
}
