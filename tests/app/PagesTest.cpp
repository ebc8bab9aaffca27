#include "EditorFaults.h"

#include "app/InitDialog.h"
#include "models/PlayerDialog.h"

#include <QColorDialog>
#include <sys/stat.h>

/// The pages "Geography", "Textures" and "In-Game Options".
class PagesTest : public QObject {
    Q_OBJECT

private slots:
    // The directory has no pictures.
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("druvelk.*=false")); }

    void eachControlHasAPlaceOfItsOwn() {
        const EditorDriver editor;
        const auto see = [](const QWidget &part) {
            QWidgetList shown = part.findChildren<QWidget *>();
            shown.removeIf([](QWidget *widget) {
                const bool isOne = qobject_cast<QLabel *>(widget) != nullptr ||
                                   qobject_cast<QComboBox *>(widget) != nullptr ||
                                   qobject_cast<QLineEdit *>(widget) != nullptr ||
                                   qobject_cast<QAbstractButton *>(widget) != nullptr ||
                                   qobject_cast<QAbstractSpinBox *>(widget) != nullptr;
                return !isOne || !widget->isVisible() ||
                       qobject_cast<QAbstractSpinBox *>(widget->parentWidget()) != nullptr;
            });
            QVERIFY(shown.size() >= 4);
            QRegion taken;
            for (const QWidget *const widget : shown) {
                const auto *const label = qobject_cast<const QLabel *>(widget);
                QVERIFY2(label == nullptr || !label->text().isEmpty() || !label->pixmap().isNull(),
                         qPrintable(widget->objectName()));
                const QRect place(widget->mapTo(&part, QPoint()), widget->size());
                QVERIFY2(!taken.intersects(place) && !widget->pos().isNull(),
                         qPrintable(widget->objectName()));
                taken += place;
            }
        };
        for (int page = 0; page < editor.window->MainTab->count(); ++page) {
            editor.window->MainTab->setCurrentIndex(page);
            QCoreApplication::processEvents();
            see(*editor.window->MainTab->currentWidget());
        }
        const QPalette inks = editor.window->numTeams->palette();
        QCOMPARE(inks.color(QPalette::Disabled, QPalette::Text),
                 inks.color(QPalette::Active, QPalette::Text));
        QVERIFY(EditorDriver::answer<InitDialog>([&] { editor.clickTool("fileNewAction"); }, see));
        QVERIFY(EditorDriver::answer<PlayerDialog>([&] { editor.click("EditChar"); }, see));
    }

    void eachColorButtonDressesItsPart() {
        const EditorDriver editor;
        GLMapWidget &view = *editor.window->mapView;
        const auto colors = [&] {
            const auto &sun = editor.environment().sunColor;
            return std::array{editor.level().mesh->color, editor.environment().groundColor,
                              std::array{sun[0], sun[1], sun[2]}, editor.environment().waterColor};
        };
        auto wanted = colors();
        for (const auto &[button, parts] : {std::pair("TerrainColor", std::vector<std::size_t>{0, 1}),
                                            {"SunColor", {2}},
                                            {"WaterColor", {3}}}) {
            const auto open = [&editor, name = button] { editor.click(name); };
            QVERIFY(EditorDriver::answer<QColorDialog>(
                open, [](QColorDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }));
            QCOMPARE(colors(), wanted);
            view.reinitPending = false;
            const auto &terrain = wanted[0];
            QVERIFY(EditorDriver::answer<QColorDialog>(open, [&terrain](QColorDialog &dialog) {
                QCOMPARE(dialog.currentColor(), QColor(Qt::white));
                QCOMPARE(QColorDialog::customColor(13).rgb(),
                         QColor::fromRgbF(terrain[0], terrain[1], terrain[2]).rgb());
                QCOMPARE(QColorDialog::customColor(15), QColor(51, 102, 204));
                auto *const html = dialog.findChild<QLineEdit *>();
                html->selectAll();
                QTest::keyClicks(html, QStringLiteral("#330066"));
                QTest::mouseClick(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                                  Qt::LeftButton);
            }));
            for (const std::size_t part : parts) {
                wanted.at(part) = {51 * (1.0F / 255), 0, 102 * (1.0F / 255)};
            }
            QCOMPARE(colors(), wanted);
            // Lights and fog take the sun's colour when they are set up.
            QVERIFY(view.reinitPending || qstrcmp(button, "SunColor") != 0);
            QCOMPARE(faultOf(editor), QByteArray());
        }
    }

    void namesStandForNumbers() {
        const EditorDriver editor;
        const auto noon = editor.environment().skyTint;
        for (const QComboBox *const box : {editor.window->gravity, editor.window->dayTime}) {
            for (int i = 0; i < box->count(); ++i) {
                editor.pick(qPrintable(box->objectName()), box->itemText(i));
                QCOMPARE(faultOf(editor), QByteArray());
            }
        }
        QVERIFY(editor.environment().skyTint != noon);
    }

    void waterDragsInWaterWalkingAlong() {
        const EditorDriver editor;
        const BackgroundNode &environment = editor.environment();
        editor.click("water");
        QVERIFY(!environment.water && !environment.waterWalking);
        QCOMPARE(faultOf(editor), QByteArray());
        editor.window->mapView->reinitPending = false;
        editor.click("water");
        QVERIFY(environment.water && environment.waterWalking);
        // The plane has no list yet if the water was off when the preview was set up.
        QVERIFY(editor.window->mapView->reinitPending);
        editor.click("waterWalking");
        QVERIFY(environment.water && !environment.waterWalking);
    }

    void texturesAreStoredAsPathsOfTheDataTree() {
        const EditorDriver editor;
        QVERIFY(QDir().mkpath(QStringLiteral("data/textures")));
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(Qt::red);
        for (const char *const bird : {"parrot", "eagle2"}) {
            QVERIFY(picture.save(QStringLiteral("data/textures/%1.jpg").arg(QLatin1String(bird))));
        }
        QCOMPARE(mkfifo("data/textures/eagle1.jpg", 0600), 0);
        const BackgroundNode &environment = editor.environment();
        GLMapWidget &view = *editor.window->mapView;
        editor.turnTo(*editor.window->birdTextureType);
        QTest::keyClick(editor.window->birdTextureType, Qt::Key_End);
        for (const int chosen : {0, 2}) {
            QVERIFY(!editor.window->birdTextureType->itemIcon(chosen).isNull());
        }
        for (const auto &[box, name, stored, path] :
             {std::tuple("TerrainTextureType", "daffodils", &environment.groundTexture, "textures/daffodils"),
              {"SkyTextureType", "cirri", &environment.cubeTexture, "CubeMap/cirri/mount"},
              {"waterTextureType", "water3", &environment.waterTexture, "textures/water3"},
              {"birdTextureType", "eagle2", &environment.birdTexture, "textures/eagle2"}}) {
            view.reinitPending = false;
            editor.pick(box, QLatin1String(name));
            QCOMPARE(*stored, QStringLiteral("./data/%1.jpg").arg(QLatin1String(path)));
            QCOMPARE(view.reinitPending, stored != &environment.birdTexture);
        }
        QCOMPARE(editor.level().mesh->texture, environment.groundTexture);
        const QComboBox &birds = *editor.window->birdTextureType;
        const QList<QSize> whole{QSize(16, 16) * birds.devicePixelRatio()};
        QVERIFY(birds.itemIcon(0).availableSizes() == whole && birds.itemIcon(2).availableSizes() == whole);
        QVERIFY(birds.itemIcon(1).isNull());
    }

    void anUnknownTextureIsShownAndKeptUntilAnotherIsPicked() {
        const EditorDriver editor([](LevelDocument &level) {
            level.background->groundTexture = QStringLiteral("./data/textures/lava.v2.jpg");
            level.background->cubeTexture = QStringLiteral("odd");
        });
        QCOMPARE(faultOf(editor), QByteArray());
        QCOMPARE(editor.environment().groundTexture, QStringLiteral("./data/textures/lava.v2.jpg"));
        editor.pick("TerrainTextureType", QStringLiteral("snow1"));
        QCOMPARE(editor.environment().groundTexture, QStringLiteral("./data/textures/snow1.jpg"));
        editor.window->readBackLevel();
        QVERIFY(editor.window->TerrainTextureType->placeholderText().isEmpty());
        QCOMPARE(faultOf(editor), QByteArray());
    }
};

DRUVELK_TEST_MAIN(PagesTest)
#include "PagesTest.moc"
