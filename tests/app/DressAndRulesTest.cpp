#include "EditorDriver.h"

/// The pages "Textures" and "In-Game Options".
class DressAndRulesTest : public QObject {
    Q_OBJECT

private slots:
    void texturesAreStoredAsPathsOfTheDataTree() {
        const EditorDriver editor;
        QVERIFY(QDir().mkpath(QStringLiteral("data/textures")));
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(QStringLiteral("data/textures/eagle2.jpg")));
        const BackgroundNode &environment = editor.environment();
        GLMapWidget &view = *editor.window->mapView;
        view.reinitPending = false;
        editor.pick("birdTextureType", QStringLiteral("eagle2"));
        QCOMPARE(environment.birdTexture, QStringLiteral("./data/textures/eagle2.jpg"));
        QVERIFY(!view.reinitPending);
        const auto &birds = editor.find<QComboBox>("birdTextureType");
        QCOMPARE(birds.itemIcon(2).availableSizes(), QList<QSize>{QSize(16, 16) * birds.devicePixelRatio()});
        QVERIFY(birds.itemIcon(0).isNull());
        editor.pick("TerrainTextureType", QStringLiteral("daffodils"));
        QCOMPARE(environment.groundTexture, QStringLiteral("./data/textures/daffodils.jpg"));
        QCOMPARE(editor.level().mesh->texture, environment.groundTexture);
        QVERIFY(std::exchange(view.reinitPending, false));
        editor.pick("SkyTextureType", QStringLiteral("cirri"));
        QCOMPARE(environment.cubeTexture, QStringLiteral("./data/CubeMap/cirri/mount.jpg"));
        QVERIFY(std::exchange(view.reinitPending, false));
        editor.pick("waterTextureType", QStringLiteral("water3"));
        QCOMPARE(environment.waterTexture, QStringLiteral("./data/textures/water3.jpg"));
        QVERIFY(view.reinitPending);
    }

    void anUnknownTextureIsShownAndKeptUntilAnotherIsPicked() {
        const EditorDriver editor([](LevelDocument &level) {
            level.background->groundTexture = QStringLiteral("./data/textures/lava.v2.jpg");
            level.background->cubeTexture = QStringLiteral("odd");
        });
        auto &ground = editor.find<QComboBox>("TerrainTextureType");
        QCOMPARE(ground.currentIndex(), -1);
        QCOMPARE(ground.placeholderText(), QStringLiteral("lava"));
        QCOMPARE(editor.find<QComboBox>("SkyTextureType").placeholderText(), QStringLiteral("odd"));
        QCOMPARE(editor.environment().groundTexture, QStringLiteral("./data/textures/lava.v2.jpg"));
        editor.pick("TerrainTextureType", QStringLiteral("snow1"));
        QCOMPARE(editor.environment().groundTexture, QStringLiteral("./data/textures/snow1.jpg"));
        editor.window->readBackLevel();
        QCOMPARE(ground.currentText(), QStringLiteral("snow1"));
        QVERIFY(ground.placeholderText().isEmpty());
    }

    void gravityHasThreeValues() {
        const EditorDriver editor;
        for (const auto &[name, value] : {std::pair("high", 12.5F), {"low", 6.4F}, {"normal", 9.8F}}) {
            editor.pick("gravity", QLatin1String(name));
            QCOMPARE(editor.environment().gravity, value);
        }
        editor.window->gravity_activated(QStringLiteral("none"));
        QCOMPARE(editor.environment().gravity, 9.8F);
    }

    void numbersReachTheLevelByKeyAndWheel() {
        const EditorDriver editor;
        editor.type("sunSpeed", QStringLiteral("7"));
        QCOMPARE(editor.environment().sunSpeed, 7);
        auto &speed = editor.find<QSpinBox>("sunSpeed");
        QTest::keyClick(&speed, Qt::Key_PageUp);
        QTest::keyClick(&speed, Qt::Key_PageUp);
        QCOMPARE(editor.environment().sunSpeed, 18);
        editor.type("birdsNumber", QStringLiteral("0"));
        QCOMPARE(editor.environment().birdsNumber, 0);
        QVERIFY(!editor.find<QGroupBox>("birdTextureGroup").isEnabled());
        QTest::keyClick(&editor.find<QSpinBox>("birdsNumber"), Qt::Key_Up);
        QCOMPARE(editor.environment().birdsNumber, 1);
        QVERIFY(editor.find<QGroupBox>("birdTextureGroup").isEnabled());
    }
};

DRUVELK_TEST_MAIN(DressAndRulesTest)
#include "DressAndRulesTest.moc"
