#include "scene/LevelText.h"

#include "support/druvelkTest.h"

#include <QDomDocument>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <random>

namespace {

constexpr float untouched = -7;

} // namespace

class LevelTextTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        // The decimal comma of a locale must not reach the file, nor be asked for when reading.
        QLocale::setDefault(QLocale(QLocale::German));
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }

    void readsReals_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<float>("value");
        const auto row = [](const char *text, float value) {
            QTest::newRow(text) << QByteArray(text) << value;
        };
        row("0.5", 0.5F);
        row("-.5", -0.5F);
        row("5.", 5);
        row("1E+2", 100);
        row("+1.5e-1", 0.15F);
        row("010", 10);
        row("3.4028235e38", 3.4028235e38F);
        row("1e-45", 1e-45F);
        row("1e-46", 0);
        row("-1e-400", 0);
        row("1e-99999999999999999999", 0);
        row("0e99999999999999999999", 0);
        QTest::newRow("400 zeros behind the point") << "0." + QByteArray(400, '0') + "1" << 0.0F;
        QTest::newRow("many digits, large negative exponent") << QByteArray(400, '9') + "e-500" << 0.0F;
        QTest::newRow("many zeros, made up for") << "0." + QByteArray(400, '0') + "1e401" << 1.0F;
        QTest::newRow("many digits, too many") << QByteArray(400, '9') << untouched;
        for (const char *bad : {"",         "+",       "-",      ".",      "e5",
                                "++1",      "+-1",     "-+1",    "--1",    "1e",
                                "1e+",      "0x10",    "1,5",    "1.5.2",  "1f",
                                "nan",      "-nan",    "nan(1)", "inf",    "+inf",
                                "infinity", "3.41e38", "1e39",   "-1e400", "1e99999999999999999999",
                                " 1",       "1 "}) {
            QTest::addRow("malformed '%s'", bad) << QByteArray(bad) << untouched;
        }
    }

    void readsReals() {
        QFETCH(const QByteArray, text);
        QFETCH(const float, value);
        float read = untouched;
        QCOMPARE(parseReal(text.toStdString(), read), value != untouched);
        QVERIFY2(read == value, QByteArray::number(double(read)));
    }

    void readsIntegers() {
        const auto reads = [](const char *text, int value) {
            int read = -7;
            return parseInt(text, read) == (value != -7) && read == value;
        };
        QVERIFY(reads("-0", 0) && reads("010", 10) && reads("+12", 12));
        QVERIFY(reads("2147483647", 2147483647) && reads("-2147483648", -2147483647 - 1));
        for (const char *bad : {"2147483648", "99999999999999999999", "", "+", "-", "+-1", "++1", "1.0",
                                "1e2", "0x1", "1a", "nan"}) {
            QVERIFY2(reads(bad, -7), bad);
        }
    }

    void valuesTakeTheirPlaceInTheRow() {
        const QString text = QStringLiteral("\t1 \r\n x\v2.5\f 1 2 yes\u00e9 99999999999 \u0665 7");
        ValueReader values(text);
        std::array<float, 3> reals{9, 9, 9};
        values.read(reals);
        QCOMPARE(reals, (std::array<float, 3>{1, 9, 2.5F}));
        std::array<bool, 3> flags{false, true, true};
        for (bool &flag : flags) {
            values.read(flag);
        }
        QCOMPARE(flags, (std::array<bool, 3>{true, false, true}));
        std::array<int, 4> numbers{-1, -1, -1, -1};
        for (int &number : numbers) {
            values.read(number);
        }
        QCOMPARE(numbers, (std::array<int, 4>{-1, -1, 7, -1}));
    }

    /// Against the C library in the neutral locale, and back again.
    void writesRealsWithSixDigits() {
        std::setlocale(LC_ALL, "C");
        std::mt19937 random(1);
        for (int i = 0; i < 200000; ++i) {
            const auto value =
                i < 1000 ? static_cast<float>(i - 500) / 10 : std::bit_cast<float>(std::uint32_t(random()));
            if (!std::isfinite(value)) {
                continue;
            }
            std::array<char, 64> expected{};
            std::snprintf(expected.data(), expected.size(), "%g", static_cast<double>(value));
            QByteArray text;
            appendReal(text, value);
            QCOMPARE(text, QByteArray(expected.data()));
            float back = untouched;
            QVERIFY(parseReal(text.toStdString(), back));
            QVERIFY2(std::fabs(back - value) <= 5e-6F * std::fabs(value) + 1e-45F, text);
        }
    }

    void escapesOnlyWhatPlainTextCannotHold() {
        const QString plain = QStringLiteral(" !#$%'()*+,-./09:;=>?@AZ[\\]^_`az{|}~]]>");
        QCOMPARE(attributeText(plain), plain.toLatin1());
        QCOMPARE(attributeText(QStringLiteral("&<\"\t\n\r\u007f\u00e9\u4e2d")),
                 QByteArray("&amp;&lt;&quot;&#9;&#10;&#13;&#127;&#233;&#20013;"));
        QCOMPARE(attributeText(QString::fromUcs4(U"\U0001F600")), QByteArray("&#128512;"));
        const std::array<char16_t, 11> dropped{u'a',   0,    1,      0x1F,   0xFFFE, 0xFFFF,
                                               0xD83D, u'b', 0xDE00, 0xD83D, 0xD83D};
        QCOMPARE(attributeText(QString::fromUtf16(dropped.data(), dropped.size())), QByteArray("ab"));
    }
};

DRUVELK_TEST_MAIN(LevelTextTest)
#include "LevelTextTest.moc"
