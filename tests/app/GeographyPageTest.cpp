#include "EditorDriver.h"

#include <QColorDialog>

/// The page "Geography": colours, time of day, fog, water, random geography and erosion.
class GeographyPageTest : public QObject {
    Q_OBJECT

private slots:
    void eachColorButtonDressesItsPart_data() {
        QTest::addColumn<QByteArray>("button");
        for (const char *button : {"TerrainColor", "SunColor", "WaterColor"}) {
            QTest::newRow(button) << QByteArray(button);
        }
    }

    void eachColorButtonDressesItsPart() {
        QFETCH(QByteArray, button);
        const EditorDriver editor;
        const auto swatch = [&] {
            const QImage icon =
                editor.find<QPushButton>(button.constData()).icon().pixmap(QSize(36, 14), 1.0).toImage();
            return icon.pixelColor(10, 7);
        };
        const QColor before = swatch();
        const auto open = [&] { editor.click(button.constData()); };
        const auto pickColor = [](QColorDialog &colors) {
            QCOMPARE(colors.objectName(), QStringLiteral("color dialog"));
            QCOMPARE(colors.currentColor(), QColor(Qt::white));
            QCOMPARE(QColorDialog::customColor(13), QColor(Qt::white));
            QCOMPARE(QColorDialog::customColor(15), QColor(51, 102, 204));
            auto *const html = colors.findChild<QLineEdit *>();
            html->selectAll();
            QTest::keyClicks(html, QStringLiteral("#330066"));
            QTest::mouseClick(colors.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                              Qt::LeftButton);
        };
        QVERIFY(EditorDriver::answer<QColorDialog>(
            open, [](QColorDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }));
        QCOMPARE(swatch(), before);

        const BackgroundNode untouched;
        editor.window->mapView->reinitPending = false;
        QVERIFY(EditorDriver::answer<QColorDialog>(open, pickColor));
        QCOMPARE(swatch(), QColor(0x33, 0, 0x66));
        const std::array<float, 3> color{51 * (1.0F / 255), 0, 102 * (1.0F / 255)};
        const bool ground = button == "TerrainColor";
        const bool sun = button == "SunColor";
        QCOMPARE(editor.level().mesh->color, ground ? color : (std::array<float, 3>{1, 1, 1}));
        QCOMPARE(editor.environment().groundColor, ground ? color : untouched.groundColor);
        QCOMPARE(editor.environment().waterColor, ground || sun ? untouched.waterColor : color);
        const std::array<float, 4> sunColor{color[0], color[1], color[2], 1};
        QCOMPARE(editor.environment().sunColor, sun ? sunColor : untouched.sunColor);
        QCOMPARE(editor.window->mapView->reinitPending, sun);
    }

    void dayTimesAreAnglesOfTheSun() {
        const EditorDriver editor;
        const std::array<float, 3> noon = editor.environment().skyTint;
        for (const auto &[name, angle] : {std::pair("afternoon", 111),
                                          {"sunrise", 30},
                                          {"morning", 50},
                                          {"evening", 151},
                                          {"sunset", 131},
                                          {"noon", 70},
                                          {"night", 171}}) {
            editor.pick("dayTime", QLatin1String(name));
            QCOMPARE(editor.environment().dayTime, angle);
        }
        QVERIFY(editor.environment().skyTint != noon);
    }

    void waterDragsInWaterWalkingAlong() {
        const EditorDriver editor;
        editor.click("water");
        QVERIFY(!editor.environment().water && !editor.environment().waterWalking);
        for (const char *dependent : {"waterWalking", "WaterColor", "textLabel2_2", "WaterTextureGroup"}) {
            QVERIFY2(!editor.find<QWidget>(dependent).isEnabled(), dependent);
        }
        editor.window->mapView->reinitPending = false;
        editor.click("water");
        QVERIFY(editor.environment().water && editor.environment().waterWalking);
        // The plane has no list yet if the water was off when the preview was set up.
        QVERIFY(editor.window->mapView->reinitPending);
        editor.click("waterWalking");
        QVERIFY(editor.environment().water && !editor.environment().waterWalking);
    }
};

DRUVELK_TEST_MAIN(GeographyPageTest)
#include "GeographyPageTest.moc"
