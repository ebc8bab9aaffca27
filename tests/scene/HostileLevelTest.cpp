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

constexpr int sixteenMiB = 16 * 1024 * 1024;

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
        const auto limit = [&](const char *name, int most, const std::function<QByteArray(int)> &made) {
            row(name, true, [=] { return made(most); });
            QTest::addRow("%s, and one more", name) << Maker([=] { return made(most + 1); }) << false;
        };
        limit("16 MiB", sixteenMiB,
              [](int size) { return levelOf(QByteArray(size - levelOf({}).size(), ' ')); });
        limit("256 levels", 255, nested);
        limit("100,000 elements", 99998,
              [](int count) { return levelOf(QByteArray("<CISGGroup/>").repeated(count)); });
        limit("64 attributes", 64, [](int count) { return levelOf(attributes(count)); });
        limit("a name of 64 KiB, a reference for each character", 65536, [](int length) {
            return levelOf("<CharacterNode name='" + QByteArray("&#128512;").repeated(length) + "'/>");
        });
        row("64 attributes in every element", false,
            [] { return levelOf(filledTo(sixteenMiB, attributes(64))); });
        row("100,000 terrains", true,
            [] { return levelOf(QByteArray("<MeshNode density='1' dimension='3'/>").repeated(99998)); });
        row("16 MiB of comments", false, [] { return levelOf(filledTo(sixteenMiB, "<!---->")); });
        row("16 MiB of heights", true, [] { return terrain(filledTo(sixteenMiB, "1.12345 "), "256"); });
        row("16 MiB of entities", true, [] { return terrain(filledTo(sixteenMiB, "&amp;")); });
        row("a reference too long for one", false,
            [] { return levelOf("<CharacterNode name='&#" + QByteArray(65536, '0') + ";'/>"); });
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
        row("a zero byte", false, [] { return levelOf(QByteArray("a\0b", 3)); });
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
};

DRUVELK_TEST_MAIN(HostileLevelTest)
#include "HostileLevelTest.moc"
