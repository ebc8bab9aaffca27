#include "models/PlayerDialog.h"

#include "models/CIGLPlayerWidget.h"
#include "models/Md2Model.h"
#include "models/StandInTree.h"
#include "scene/CharacterNode.h"
#include "support/druvelkTest.h"

#include <GL/gl.h>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTranslator>

namespace {

constexpr QRgb blue = 0xff2040ff;
constexpr QRgb green = 0xff20ff40;
constexpr QRgb red = 0xffff2020;
constexpr QRgb pink = 0xffff80c0;

/// How much of a picture shows one colour, and where.
struct Patch {
    double share = 0;
    double x = 0; ///< Mean place, from 0 to 1.
    double y = 0;
};

Patch patchOf(const QImage &picture, QRgb colour) {
    Patch patch;
    double count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == colour) {
                ++count;
                patch.x += x;
                patch.y += y;
            }
        }
    }
    patch.share = count / (double(picture.width()) * picture.height());
    patch.x /= std::max(count, 1.0) * picture.width();
    patch.y /= std::max(count, 1.0) * picture.height();
    return patch;
}

/// The dialog once it is on the screen.
struct ShownDialog : PlayerDialog {
    ShownDialog() {
        show();
        [this] { QVERIFY(QTest::qWaitForWindowExposed(this)); }();
    }
    QImage picture() { return PreviewPlayerWidget->grabFramebuffer(); }
    bool shows(QRgb colour) { return patchOf(picture(), colour).share > 0.002; }
};

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
    void initTestCase() {
        QVERIFY(QDir::setCurrent(directory.path()));
        StandInTree tree(directory.path());
        QVERIFY(tree.addCharacter("Terminator") && tree.addSkin("Terminator", "Blue", blue) &&
                tree.addSkin("Terminator", "Red", red) && tree.addWeapon("Terminator", "Standard") &&
                tree.addWeapon("Terminator", "Small gun", pink));
        QVERIFY(tree.addCharacter("Hayden", false) && tree.addSkin("Hayden", "Red", green));
    }

    // With the paths of the first picture, whose lower-case letters the data tree does not have.
    void showsTheCharacterUprightWithItsWeapon() {
        ShownDialog dialog;
        QVERIFY(dialog.width() >= 476 && dialog.height() >= 308 && dialog.buttonOk->x() > dialog.width() / 2);
        const QImage picture = dialog.picture();
        const QSizeF size = QSizeF(dialog.PreviewPlayerWidget->size()) * dialog.devicePixelRatioF();
        QCOMPARE(picture.size(), QSize(qRound(size.width()), qRound(size.height())));
        const Patch head = patchOf(picture, blue);
        const Patch feet = patchOf(picture, StandInTree::feet);
        const Patch weapon = patchOf(picture, StandInTree::weapon);
        QVERIFY2(head.share > 0.02 && feet.share > 0.02 && weapon.share > 0.002, "all three are seen");
        QVERIFY2(head.y + 0.1 < feet.y, "the head is above the feet");
        QVERIFY2(std::abs(weapon.x - head.x) > 0.05 && weapon.y > 0.2 && weapon.y < 0.8, "beside the body");
        QVERIFY2(head.share + feet.share < 0.6, "there is room around the body");
        for (const QPoint corner : {QPoint(0, 0), QPoint(picture.width() - 1, picture.height() - 1)}) {
            // The clear colour is (0.4, 0.3, 0.1), however the driver rounds it.
            const QRgb pixel = picture.pixel(corner);
            QVERIFY(qAlpha(pixel) == 255 && qRed(pixel) == 102 && std::abs(qGreen(pixel) - 76.5) < 1 &&
                    std::abs(qBlue(pixel) - 25.5) < 1);
        }
    }

    void showsWhatIsPicked() {
        for (int opened = 0; opened < 2; ++opened) {
            ShownDialog dialog;
            QVERIFY(dialog.shows(blue) && dialog.shows(StandInTree::weapon));
            QTest::keyClicks(dialog.TeamBox, "Red");
            QVERIFY(dialog.shows(red) && !dialog.shows(blue) && dialog.shows(StandInTree::weapon));
            QTest::keyClicks(dialog.WeaponBox, "Small");
            QVERIFY(dialog.shows(red) && dialog.shows(pink) && !dialog.shows(StandInTree::weapon));
            QTest::keyClicks(dialog.ModelBox, "Hayden"); // It has a skin, but no model and no weapon.
            QVERIFY(dialog.shows(green) && dialog.shows(StandInTree::feet) && !dialog.shows(red));
            QVERIFY2(dialog.shows(0xffffffff) && !dialog.shows(pink), "the weapon has lost its skin");
        }
    }

    void movesOnlyWhileVisible() {
        const Md2Model &model = CIGLPlayerWidget::characterModel();
        QElapsedTimer clock;
        clock.start();
        ShownDialog dialog;
        QTRY_VERIFY(model.framePosition > 0.3F);
        QVERIFY(model.startFrame == 0 && model.endFrame == 39 && model.speed == 2);
        QCOMPARE(CIGLPlayerWidget::weaponModel().endFrame, 39);
        const float before = model.framePosition;
        const float lastPaint = model.lastTime;
        emit dialog.TeamBox->textActivated(dialog.TeamBox->currentText());
        QTRY_VERIFY(model.framePosition < before); // A pick starts the animation anew.
        QTRY_VERIFY(model.framePosition > 0.1F);
        const float seconds = model.lastTime - lastPaint;
        QVERIFY2(seconds < float(clock.elapsed()) * 0.001F && model.framePosition < 2.01F * seconds,
                 "two frames a second");

        const QTimer &timer = *dialog.PreviewPlayerWidget->findChild<QTimer *>();
        dialog.hide();
        QVERIFY(!timer.isActive());
        dialog.show();
        QVERIFY(timer.isActive());
    }

    void anyShapeKeepsTheFieldOfView() {
        const auto headSize = [](QSize size) {
            CIGLPlayerWidget preview;
            preview.resize(size);
            const QImage picture = preview.grabFramebuffer();
            preview.makeCurrent();
            std::array<float, 4> specular{};
            glGetMaterialfv(GL_FRONT, GL_SPECULAR, specular.data());
            [&] { QCOMPARE(specular, (std::array{0.4F, 0.4F, 0.4F, 1.0F})); }();
            return patchOf(picture, blue).share * size.width();
        };
        const double square = headSize({201, 201});
        const double wide = headSize({401, 201});
        QVERIFY2(square > 10 && std::abs(wide / square - 1) < 0.05,
                 qPrintable(QString::number(wide / square)));
    }

    void copiesTheChoices() {
        ShownDialog dialog;
        dialog.Name->clear();
        QTest::keyClicks(dialog.Name, "Ann <3");
        QTest::keyClicks(dialog.ModelBox, "Marine");
        QTest::keyClicks(dialog.TeamBox, "Personal");
        for (const auto &[typed, taken] : {std::pair(-1, 0), {11, 10}, {4, 4}}) {
            dialog.waitForBox->setValue(typed);
            QCOMPARE(dialog.waitForBox->value(), taken);
        }
        dialog.ifWait->click();
        QVERIFY(!dialog.waitForBox->isEnabled());
        CharacterNode player;
        dialog.copyTo(player);
        QCOMPARE(player.waitFor, 99);
        dialog.ifWait->click();
        for (const auto &[weapon, value] :
             {std::pair{"Standard", 0.5F}, std::pair{"Annientatore", 0.7F}, std::pair{"Small gun", 0.3F}}) {
            dialog.copyTo(player);
            QCOMPARE(player.weapon, QLatin1String(weapon));
            QCOMPARE(player.weaponValue, value);
            QTest::keyClick(dialog.WeaponBox, Qt::Key_Up);
        }
        QCOMPARE(player.name + player.model + player.team, QStringLiteral("Ann <3MarinePersonal"));
        QVERIFY(player.modelIndex == 6 && player.teamIndex == 3 && player.waitFor == 4);
        QTest::keyClick(dialog.Name, Qt::Key_Return);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void keepsTheChoicesInAnotherLanguage() {
        PlayerDialog dialog;
        dialog.ModelBox->setCurrentIndex(4);
        EchoTranslator translator;
        QVERIFY(QApplication::installTranslator(&translator));
        QCoreApplication::sendPostedEvents();
        QCOMPARE(dialog.buttonCancel->text(), QStringLiteral("&Cancel&Cancel"));
        QCOMPARE(dialog.ModelBox->currentText(), QStringLiteral("DireDire"));
        QCOMPARE(dialog.WeaponBox->currentIndex(), 2);
        QCOMPARE(dialog.ModelBox->count(), 7);
        QCOMPARE(dialog.Name->text(), QStringLiteral("john doejohn doe"));
        dialog.Name->setText(QStringLiteral("Ann"));
        QApplication::removeTranslator(&translator);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Edit Player"));
        QCOMPARE(dialog.Name->text(), QStringLiteral("Ann"));
    }

private:
    QTemporaryDir directory;
};

DRUVELK_TEST_MAIN(PlayerDialogTest)
#include "PlayerDialogTest.moc"
