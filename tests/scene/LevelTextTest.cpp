#include "scene/LevelText.h"

#include "support/druvelkTest.h"
#include "support/randomSeed.h"

#include <QRegularExpression>
#include <cmath>
#include <random>

namespace {

constexpr float untouched = -7;

} // namespace

class LevelTextTest : public QObject {
    Q_OBJECT

private slots:
    /// Against the grammar of decimals, and what the C library makes of them.
    void readsDecimalsAndNothingElse() {
        const QRegularExpression integer("^[+-]?[0-9]+\\z");
        const QRegularExpression real("^[+-]?([0-9]+[.]?[0-9]*|[.][0-9]+)([eE][+-]?[0-9]+)?\\z");
        const QByteArrayList pieces = QByteArray("0 1 9 25 000 . . e E + - e-4 e38 e-45 e400 e-400 "
                                                 "e99999999999999999999 2147483647 -2147483648 3.41 "
                                                 "3.4028235e38 x f , inf nan 0x")
                                          .split(' ')
                                      << QByteArray(400, '0') << QByteArray(400, '9') << " ";
        std::mt19937 random(randomSeed());
        for (int i = 0; i < 20000; ++i) {
            QByteArray text;
            for (auto left = random() % 6; left > 0; --left) {
                text += pieces[static_cast<qsizetype>(random()) % pieces.size()];
            }
            const float value = std::strtof(text.constData(), nullptr);
            const bool isReal = real.match(text).hasMatch() && std::isfinite(value);
            float read = untouched;
            QVERIFY2(parseReal(text.toStdString(), read) == isReal && read == (isReal ? value : untouched),
                     text.constData());
            const double whole = std::strtod(text.constData(), nullptr);
            const bool isInteger =
                integer.match(text).hasMatch() && whole >= -2147483648.0 && whole <= 2147483647.0;
            int number = -7;
            QVERIFY2(parseInt(text.toStdString(), number) == isInteger && number == (isInteger ? whole : -7),
                     text.constData());
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

    void dropsWhatNoFileCanHold() {
        const std::array<char16_t, 11> dropped{u'a',   0,    1,      0x1F,   0xFFFE, 0xFFFF,
                                               0xD83D, u'b', 0xDE00, 0xD83D, 0xD83D};
        QCOMPARE(attributeText(QString::fromUtf16(dropped.data(), dropped.size())), QByteArray("ab"));
    }
};

DRUVELK_TEST_MAIN(LevelTextTest)
#include "LevelTextTest.moc"
