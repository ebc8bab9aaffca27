#include "models/PlayerDialog.h"

#include "models/CIGLPlayerWidget.h"
#include "models/CharacterCatalogue.h"
#include "scene/CharacterNode.h"
#include "support/druvelkTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTranslator>

namespace {

/// Picks an item as a user does, with the keyboard.
void pick(QComboBox &box, const QString &item) {
    const int steps = box.findText(item) - box.currentIndex();
    for (int i = 0; i < std::abs(steps); ++i) {
        QTest::keyClick(&box, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
    }
    QCOMPARE(box.currentText(), item);
}

QStringList paths(const PlayerDialog &dialog) {
    const CIGLPlayerWidget &preview = *dialog.PreviewPlayerWidget;
    QStringList result;
    for (const std::string &path :
         {preview.modelPath, preview.modelSkinPath, preview.weaponPath, preview.weaponSkinPath}) {
        result += QString::fromStdString(path);
    }
    return result;
}

QStringList pathsOf(const CharacterFiles &files) {
    return {files.model, files.modelSkin, files.weapon, files.weaponSkin};
}

/// Doubles every text it is asked for.
class EchoTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override {
        return QLatin1String(context) == QLatin1String("PlayerDialog") ? QString(source).repeated(2)
                                                                       : QString();
    }
};

} // namespace

class PlayerDialogTest : public QObject {
    Q_OBJECT

private slots:
    void showsWhatIsPicked();
    void copiesTheChoices();
    void neverShootSwitchesTheWait();
    void okAcceptsAndCancelRejects();
    void keepsTheChoicesInAnotherLanguage();
};

void PlayerDialogTest::showsWhatIsPicked() {
    PlayerDialog dialog;
    QCOMPARE(paths(dialog),
             (QStringList{"./data/terminator/tris.md2", "./data/terminator/Blue.png",
                          "./data/terminator/standard.md2", "./data/terminator/standard.png"}));
    dialog.PreviewPlayerWidget->reloadPending = false;
    pick(*dialog.TeamBox, "Green");
    QVERIFY(dialog.PreviewPlayerWidget->reloadPending);
    QCOMPARE(paths(dialog),
             (QStringList{"./data/terminator/tris.md2", "./data/Terminator/Green.png",
                          "./data/terminator/standard.md2", "./data/terminator/standard.png"}));
    dialog.PreviewPlayerWidget->reloadPending = false;
    pick(*dialog.WeaponBox, "Small gun");
    QVERIFY(dialog.PreviewPlayerWidget->reloadPending);
    QCOMPARE(paths(dialog),
             (QStringList{"./data/terminator/tris.md2", "./data/Terminator/Green.png",
                          "./data/Terminator/Small gun.md2", "./data/Terminator/Small gun.png"}));
    dialog.PreviewPlayerWidget->reloadPending = false;
    pick(*dialog.ModelBox, "Rat");
    QVERIFY(dialog.PreviewPlayerWidget->reloadPending);
    QCOMPARE(paths(dialog), (QStringList{"./data/Rat/tris.md2", "./data/Rat/Green.png",
                                         "./data/Rat/Small gun.md2", "./data/Rat/Small gun.png"}));
    QCOMPARE(paths(dialog), pathsOf(characterFiles("Rat", "Green", "Small gun")));
}

void PlayerDialogTest::copiesTheChoices() {
    PlayerDialog dialog;
    dialog.Name->clear();
    QTest::keyClicks(dialog.Name, "Ann <3");
    pick(*dialog.ModelBox, "Marine");
    pick(*dialog.TeamBox, "Personal");
    dialog.waitForBox->setValue(4);
    CharacterNode player;
    for (const auto &[weapon, value] :
         {std::pair{"Small gun", 0.3F}, std::pair{"Annientatore", 0.7F}, std::pair{"Standard", 0.5F}}) {
        pick(*dialog.WeaponBox, weapon);
        dialog.copyTo(player);
        QCOMPARE(player.weapon, QLatin1String(weapon));
        QCOMPARE(player.weaponValue, value);
    }
    QCOMPARE(player.name, QStringLiteral("Ann <3"));
    QCOMPARE(player.model, QStringLiteral("Marine"));
    QCOMPARE(player.team, QStringLiteral("Personal"));
    QVERIFY(player.modelIndex == 6 && player.teamIndex == 3 && player.waitFor == 4);
}

void PlayerDialogTest::neverShootSwitchesTheWait() {
    PlayerDialog dialog;
    CharacterNode player;
    dialog.waitForBox->setValue(4);
    dialog.ifWait->click();
    QVERIFY(!dialog.waitForBox->isEnabled() && !dialog.textLabel1->isEnabled());
    dialog.copyTo(player);
    QCOMPARE(player.waitFor, 99);
    dialog.ifWait->click();
    QVERIFY(dialog.waitForBox->isEnabled() && dialog.textLabel1->isEnabled());
    dialog.copyTo(player);
    QCOMPARE(player.waitFor, 4);
}

void PlayerDialogTest::okAcceptsAndCancelRejects() {
    PlayerDialog dialog;
    QTimer::singleShot(0, &dialog, [&] { QTest::keyClick(dialog.Name, Qt::Key_Return); });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QTimer::singleShot(0, &dialog, [&] { QTest::mouseClick(dialog.buttonCancel, Qt::LeftButton); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
}

void PlayerDialogTest::keepsTheChoicesInAnotherLanguage() {
    PlayerDialog dialog;
    pick(*dialog.ModelBox, "Dire");
    pick(*dialog.WeaponBox, "Annientatore");
    EchoTranslator translator;
    QVERIFY(QApplication::installTranslator(&translator));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(dialog.buttonCancel->text(), QStringLiteral("&Cancel&Cancel"));
    QCOMPARE(dialog.ModelBox->currentText(), QStringLiteral("DireDire"));
    QCOMPARE(dialog.WeaponBox->currentIndex(), 1);
    QCOMPARE(dialog.ModelBox->count(), 7);
    QCOMPARE(dialog.Name->text(), QStringLiteral("john doejohn doe"));
    dialog.Name->setText(QStringLiteral("Ann"));
    QApplication::removeTranslator(&translator);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Edit Player"));
    QCOMPARE(dialog.Name->text(), QStringLiteral("Ann"));
}

DRUVELK_TEST_MAIN(PlayerDialogTest)
#include "PlayerDialogTest.moc"
