#include "app/InitDialog.h"

#include "resources/Icons.h"

#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

InitDialog::InitDialog(QWidget *parent, const QString &name, bool modal, Qt::WindowFlags flags)
    : QDialog(parent, flags) {
    setObjectName(name.isEmpty() ? QStringLiteral("InitDialog") : name);
    setModal(modal);
    setWindowIcon(programIcon(QStringLiteral("iconEditor.png")));
    setSizeGripEnabled(true);
    buildRows();
    InitDialog::languageChange();
    resize(QSize(309, 142).expandedTo(minimumSizeHint()));
    connect(buttonOk, &QPushButton::clicked, this, &InitDialog::accept);
    connect(buttonCancel, &QPushButton::clicked, this, &InitDialog::reject);
}

void InitDialog::buildRows() {
    auto *const layout = new QVBoxLayout(this);
    layout->setObjectName(QStringLiteral("InitDialogLayout"));
    layout->setContentsMargins(11, 11, 11, 11);
    layout->setSpacing(6);
    const auto addRow = [layout](const char *name) {
        auto *const row = new QHBoxLayout;
        row->setObjectName(QLatin1String(name));
        row->setSpacing(6);
        layout->addLayout(row);
        return row;
    };
    const auto addChoice = [this](QHBoxLayout *row, QLabel *&label, const char *labelName, QComboBox *&box,
                                  const char *boxName) {
        label = new QLabel(this);
        label->setObjectName(QLatin1String(labelName));
        box = new QComboBox(this);
        box->setObjectName(QLatin1String(boxName));
        label->setBuddy(box);
        row->addWidget(label);
        row->addWidget(box, 1);
    };
    addChoice(addRow("layout2"), textLabel1, "textLabel1", mapDimension, "mapDimension");
    addChoice(addRow("layout3"), textLabel2, "textLabel2", mapScale, "mapScale");
    layout->addStretch();
    QHBoxLayout *const buttons = addRow("Layout1");
    buttons->addStretch();
    const auto addButton = [this, buttons](const char *name) {
        auto *const button = new QPushButton(this);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(true);
        buttons->addWidget(button);
        return button;
    };
    buttonOk = addButton("buttonOk");
    buttonOk->setDefault(true);
    buttonCancel = addButton("buttonCancel");
}

void InitDialog::languageChange() {
    setWindowTitle(tr("New Map"));
    textLabel1->setText(tr("Map Dimension"));
    mapDimension->clear();
    mapDimension->addItems({tr("Small"), tr("Medium"), tr("Large")});
    mapDimension->setAccessibleName(textLabel1->text());
    textLabel2->setText(tr("Ground Accuracy"));
    mapScale->clear();
    mapScale->addItems({tr("Low"), tr("High")});
    mapScale->setAccessibleName(textLabel2->text());
    buttonOk->setText(tr("&OK"));
    buttonCancel->setText(tr("&Cancel"));
    const int width = std::max(textLabel1->sizeHint().width(), textLabel2->sizeHint().width());
    textLabel1->setMinimumWidth(width);
    textLabel2->setMinimumWidth(width);
}

void InitDialog::changeEvent(QEvent *event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        const int dimension = mapDimension->currentIndex();
        const int scale = mapScale->currentIndex();
        languageChange();
        mapDimension->setCurrentIndex(dimension);
        mapScale->setCurrentIndex(scale);
    }
}
