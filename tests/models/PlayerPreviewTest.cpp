#include "models/CIGLPlayerWidget.h"
#include "models/Md2Model.h"
#include "models/PlayerDialog.h"
#include "models/StandInTree.h"
#include "support/druvelkTest.h"

#include <GL/gl.h>
#include <QComboBox>
#include <QTemporaryDir>

namespace {

constexpr QRgb blue = 0xff2040ff;
constexpr QRgb green = 0xff20ff40;
constexpr QRgb red = 0xffff2020;

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

/// Whether a pixel is the clear colour (0.4, 0.3, 0.1), however the driver rounds it.
bool isBackground(QRgb pixel) {
    return qRed(pixel) == 102 && std::abs(qGreen(pixel) - 76.5) < 1 && std::abs(qBlue(pixel) - 25.5) < 1;
}

bool shows(const QImage &picture, QRgb head) {
    return patchOf(picture, head).share > 0.02;
}

QImage shot(PlayerDialog &dialog) {
    return dialog.PreviewPlayerWidget->grabFramebuffer();
}

/// Stands for the main window's view: a widget that keeps a texture of its own.
class OtherView : public QOpenGLWidget {
public:
    OtherView() {
        setFormat(glSurfaceFormat());
        resize(40, 40);
    }

protected:
    void initializeGL() override {
        QImage picture(16, 16, QImage::Format_RGBA8888);
        picture.fill(QColor(250, 128, 3));
        glGenTextures(1, &texture_);
        glBindTexture(GL_TEXTURE_2D, texture_);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 16, 16, 0, GL_RGBA, GL_UNSIGNED_BYTE, picture.constBits());
        glEnable(GL_TEXTURE_2D);
    }
    void paintGL() override {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glBindTexture(GL_TEXTURE_2D, texture_);
        glRectf(-1, -1, 1, 1);
    }

private:
    unsigned int texture_ = 0;
};

} // namespace

class PlayerPreviewTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void showsTheCharacterUprightWithItsWeapon();
    void showsTheRightSkinsInOneDialogAfterTheOther();
    void keepsTheModelThatCannotBeReplaced();
    void movesOnlyWhileVisible();
    void anyShapeKeepsTheFieldOfView();

private:
    QTemporaryDir directory_;
};

void PlayerPreviewTest::initTestCase() {
    QVERIFY(QDir::setCurrent(directory_.path()));
    StandInTree tree(directory_.path());
    QVERIFY(tree.addCharacter("Terminator") && tree.addSkin("Terminator", "Blue", blue) &&
            tree.addSkin("Terminator", "Red", red) && tree.addWeapon("Terminator", "Standard"));
    QVERIFY(tree.addCharacter("Hayden", false) && tree.addSkin("Hayden", "Blue", green));
}

// With the paths of the first picture, whose lower-case letters the data tree does not have.
void PlayerPreviewTest::showsTheCharacterUprightWithItsWeapon() {
    PlayerDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QImage picture = shot(dialog);
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
        QCOMPARE(qAlpha(picture.pixel(corner)), 255);
        QVERIFY(isBackground(picture.pixel(corner)));
    }
}

void PlayerPreviewTest::showsTheRightSkinsInOneDialogAfterTheOther() {
    OtherView view;
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QImage before = view.grabFramebuffer();
    QCOMPARE(before.pixelColor(20, 20), QColor(250, 128, 3));
    const unsigned int texture = CIGLPlayerWidget::characterModel().textureId;
    QVERIFY(texture != 0);
    for (const QString team : {"Red", "Blue", "Red"}) {
        PlayerDialog dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QVERIFY(shows(shot(dialog), blue));
        QTest::keyClicks(dialog.TeamBox, team);
        const QImage picture = shot(dialog);
        QCOMPARE(shows(picture, red), team == "Red");
        QCOMPARE(shows(picture, blue), team == "Blue");
        QVERIFY(patchOf(picture, StandInTree::weapon).share > 0.002);
        QCOMPARE(CIGLPlayerWidget::characterModel().textureId, texture);
        QCOMPARE(view.grabFramebuffer(), before);
    }
}

void PlayerPreviewTest::keepsTheModelThatCannotBeReplaced() {
    PlayerDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QVERIFY(shows(shot(dialog), blue));
    QTest::keyClick(dialog.ModelBox, Qt::Key_Down);
    const QImage picture = shot(dialog); // Hayden has a skin, but no model and no weapon.
    QVERIFY(shows(picture, green) && shows(picture, StandInTree::feet) && !shows(picture, blue));
    QCOMPARE(patchOf(picture, StandInTree::weapon).share, 0.0);
    QVERIFY2(patchOf(picture, 0xffffffff).share > 0.002, "the weapon has lost its skin");
}

void PlayerPreviewTest::movesOnlyWhileVisible() {
    const Md2Model &model = CIGLPlayerWidget::characterModel();
    PlayerDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTRY_VERIFY(model.framePosition > 0.3F);
    QVERIFY(model.startFrame == 0 && model.endFrame == 39 && model.speed == 2);
    QCOMPARE(CIGLPlayerWidget::weaponModel().endFrame, 39);
    const float before = model.framePosition;
    emit dialog.TeamBox->textActivated(dialog.TeamBox->currentText());
    QTRY_VERIFY(model.framePosition < before); // A pick starts the animation anew.
    QTRY_VERIFY(model.framePosition > 0.1F);

    const QTimer &timer = *dialog.PreviewPlayerWidget->findChild<QTimer *>();
    dialog.hide();
    QVERIFY(!timer.isActive());
    dialog.show();
    QVERIFY(timer.isActive());
}

void PlayerPreviewTest::anyShapeKeepsTheFieldOfView() {
    const auto bodyHeight = [&](QSize size) {
        CIGLPlayerWidget preview;
        preview.resize(size);
        const QImage picture = preview.grabFramebuffer();
        preview.makeCurrent();
        std::array<float, 4> specular{};
        glGetMaterialfv(GL_FRONT, GL_SPECULAR, specular.data());
        [&] { QCOMPARE(specular, (std::array{0.4F, 0.4F, 0.4F, 1.0F})); }();
        int rows = 0;
        for (int y = 0; y < picture.height(); ++y) {
            bool hit = false;
            for (int x = 0; x < picture.width(); ++x) {
                hit = hit || !isBackground(picture.pixel(x, y));
            }
            rows += hit ? 1 : 0;
        }
        return double(rows) / picture.height();
    };
    const double square = bodyHeight({201, 201});
    QVERIFY2(square > 0.3 && square < 1, qPrintable(QString::number(square)));
    QVERIFY(std::abs(bodyHeight({401, 201}) - square) < 0.02);

    // No height: nothing to see, and no division by it.
    PlayerDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.PreviewPlayerWidget->setFixedHeight(0);
    QTRY_COMPARE(dialog.PreviewPlayerWidget->height(), 0);
    QTest::qWait(50);
    dialog.PreviewPlayerWidget->setFixedHeight(200);
    QTRY_VERIFY(shows(shot(dialog), blue));
}

DRUVELK_TEST_MAIN(PlayerPreviewTest)
#include "PlayerPreviewTest.moc"
