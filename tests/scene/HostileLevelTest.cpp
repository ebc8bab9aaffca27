#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelFile.h"
#include "scene/LevelScan.h"
#include "support/druvelkTest.h"
#include "support/levelBytes.h"
#include "support/peakMemory.h"

#include <functional>

using Maker = std::function<QByteArray()>;
Q_DECLARE_METATYPE(Maker)

namespace {

constexpr qsizetype sixteenMiB = qsizetype{16} * 1024 * 1024;

QByteArray terrain(const QByteArray &text, const QByteArray &dimension = "10") {
    return levelOf("<MeshNode density='4' dimension='" + dimension + "'>" + text + "</MeshNode>");
}

/// A level of 16 MiB is read in about a second; minutes and gigabytes are what must not be.
#ifdef __SANITIZE_ADDRESS__
constexpr qint64 mostMilliseconds = 120000;
#else
constexpr qint64 mostMilliseconds = 20000;
#endif

QByteArray nested(int groups) {
    return "<CISG>" + QByteArray("<CISGGroup>").repeated(groups) +
           QByteArray("</CISGGroup>").repeated(groups) + "</CISG>";
}

QByteArray attributes(int count) {
    QByteArray element = "<CharacterNode";
    for (int i = 0; i < count; ++i) {
        element += " a" + QByteArray::number(i) + "='/>'";
    }
    return element + "/>";
}

QByteArray named(int times, const QByteArray &character) {
    return levelOf("<CharacterNode name='" + character.repeated(times) + "'/>");
}

QByteArray filledTo(qsizetype size, const QByteArray &piece) {
    return piece.repeated((size - terrain({}, "256").size()) / piece.size());
}

} // namespace

class HostileLevelTest : public QObject {
    Q_OBJECT

private slots:
    void staysWithinItsLimits_data() {
        QTest::addColumn<Maker>("made");
        QTest::addColumn<bool>("result");
        const auto row = [](const char *name, bool result, const Maker &made) {
            QTest::newRow(name) << made << result;
        };
        const auto padding = QByteArray(sixteenMiB - levelOf({}).size(), ' ');
        row("16 MiB", true, [=] { return levelOf(padding); });
        row("a byte more", false, [=] { return levelOf(padding + ' '); });
        row("256 levels", true, [] { return nested(255); });
        row("257 levels", false, [] { return nested(256); });
        row("100,000 elements", true, [] { return levelOf(QByteArray("<CISGGroup/>").repeated(99998)); });
        row("one more", false, [] { return levelOf(QByteArray("<CISGGroup/>").repeated(99999)); });
        row("16 MiB of elements", false, [] { return filledTo(sixteenMiB, "<a/>"); });
        row("64 attributes", true, [] { return levelOf(attributes(64)); });
        row("65 attributes", false, [] { return levelOf(attributes(65)); });
        row("64 attributes in every element", false,
            [] { return levelOf(filledTo(sixteenMiB, attributes(64))); });
        row("100,000 terrains", true,
            [] { return levelOf(QByteArray("<MeshNode density='1' dimension='3'/>").repeated(99998)); });
        row("16 MiB of comments", false, [] { return levelOf(filledTo(sixteenMiB, "<!---->")); });
        row("16 MiB of instructions", false, [] { return levelOf(filledTo(sixteenMiB, "<?a?>")); });
        row("16 MiB of CDATA", false, [] { return terrain(filledTo(sixteenMiB, "<![CDATA[]]>")); });
        row("16 MiB of document types", false, [] { return filledTo(sixteenMiB, "<!DOCTYPE CISG>"); });
        row("16 MiB of heights", true, [] { return terrain(filledTo(sixteenMiB, "1.12345 "), "256"); });
        row("16 MiB of entities", true, [] { return terrain(filledTo(sixteenMiB, "&amp;")); });
        row("16 MiB of a tag's name", false, [] { return levelOf("<" + filledTo(sixteenMiB, "x") + "/>"); });
        row("a name of 64 KiB, a reference for each character", true,
            [] { return named(65536, "&#128512;"); });
        row("a character more", false, [] { return named(65537, "x"); });
        row("a reference too long for one", false,
            [] { return named(1, "&#" + QByteArray(65536, '0') + ";"); });
        row("references to another file", false,
            [] { return "<!DOCTYPE CISG SYSTEM 'x'>" + terrain(filledTo(sixteenMiB - 30, "&a;")); });
        row("declarations", false, [] { return "<!DOCTYPE CISG [<!ENTITY a 'b'>]>" + terrain("&a;"); });
        row("declarations behind a quoted >", false,
            [] { return "<!DOCTYPE CISG SYSTEM '>' [<!ENTITY a 'b'>]>" + terrain("&a;"); });
        row("declarations behind a quoted comment", false,
            [] { return "<!DOCTYPE CISG SYSTEM '><!--' [<!ENTITY a 'b'>]>" + terrain("&a;-->"); });
        row("markup in comments, CDATA and instructions", true,
            [] { return terrain(QByteArray("<!--<a>--><![CDATA[<a>]]><?a <a>?>").repeated(300)); });
        row("a comment that is none", false, [] { return terrain("<!-->") + "<!-- -->"; });
        row("a value without an end", false, [] { return "<CISG><CISGGroup a='"; });
        row("a zero byte", false, [] { return levelOf(QByteArray("a\0b", 3)); });
        row("UTF-16", false,
            [] { return QByteArray::fromStdString(std::string("<\0C\0I\0S\0G\0/\0>\0", 14)); });
        row("only <", false, [] { return QByteArray(sixteenMiB, '<'); });
    }

    void staysWithinItsLimits() {
        QFETCH(const Maker, made);
        QFETCH(const bool, result);
        const QByteArray bytes = made();
        const PeakMemory memory;
        QElapsedTimer clock;
        clock.start();
        {
            LevelDocument level;
            QCOMPARE(readLevel(level, bytes), result);
            level.complete();
            levelBytes(level);
        }
        QVERIFY2(clock.elapsed() < mostMilliseconds, QByteArray::number(clock.elapsed()));
        QVERIFY2(memory.growthInMiB() < 500, QByteArray::number(memory.growthInMiB()));
    }

    void aSecondDocumentTypeIsRefused() {
        QVERIFY(levelIsSafeToParse("<!DOCTYPE CISG><CISG/>"));
        QVERIFY(!levelIsSafeToParse("<!DOCTYPE CISG><!DOCTYPE CISG><CISG/>"));
    }

    /// Whatever one damaged byte makes of a level, what is saved of it reads back the same.
    void everyDamagedByteIsReadOrRefused() {
        const QByteArray whole = levelOf(
            "<MeshNode density=\"3\" dimension=\"1\">1 -2e3 nan &lt; <a b='c'/>.</MeshNode>"
            "<CharSetNode><CISGGroup/><CharacterNode name='&#9;'> 1 2 .5</CharacterNode></CharSetNode>");
        int wereRead = 0;
        for (qsizetype i = 0; i < whole.size(); ++i) {
            for (const char damage : QByteArray("\x00<>&'\"/!]9 -\xc3", 13)) {
                QByteArray bytes = whole;
                bytes[i] = damage;
                LevelDocument level;
                wereRead += readLevel(level, bytes) ? 1 : 0;
                const QByteArray saved = levelBytes(level);
                LevelDocument again;
                QVERIFY2(readLevel(again, saved), bytes);
                QCOMPARE(levelBytes(again), saved);
            }
        }
        QVERIFY(wereRead > 100);
    }
};

DRUVELK_TEST_MAIN(HostileLevelTest)
#include "HostileLevelTest.moc"
