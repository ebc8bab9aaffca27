#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelFile.h"
#include "scene/LevelScan.h"
#include "support/druvelkTest.h"
#include "support/levelBytes.h"
#include "support/peakMemory.h"

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

    static void staysSafe(const char *name, const QByteArray &bytes, bool result) {
        const PeakMemory memory;
        QElapsedTimer clock;
        clock.start();
        {
            LevelDocument level;
            QVERIFY2(readLevel(level, bytes) == result, name);
            level.complete();
            levelBytes(level);
        }
        QVERIFY2(clock.elapsed() < mostMilliseconds && memory.growthInMiB() < 500, name);
    }

private slots:
    void readsAsMuchAsItsLimitsAllow() {
        for (const int more : {0, 1}) {
            const auto limit = [more](const char *name, const QByteArray &bytes) {
                staysSafe(name, bytes, more == 0);
            };
            limit("16 MiB", levelOf(QByteArray(sixteenMiB - levelOf({}).size() + more, ' ')));
            limit("256 levels", nested(255 + more));
            limit("100,000 elements", levelOf(QByteArray("<CISGGroup/>").repeated(99998 + more)));
            limit("64 attributes", levelOf(attributes(64 + more)));
            // A reference for each character.
            limit("a name of 64 KiB",
                  levelOf("<CharacterNode name='" + QByteArray("&#128512;").repeated(65536 + more) + "'/>"));
        }
        staysSafe("100,000 terrains",
                  levelOf(QByteArray("<MeshNode density='1' dimension='3'/>").repeated(99998)), true);
        staysSafe("16 MiB of heights", terrain(filledTo(sixteenMiB, "1.12345 "), "256"), true);
        staysSafe("16 MiB of entities", terrain(filledTo(sixteenMiB, "&amp;")), true);
        staysSafe("markup in comments, CDATA and instructions",
                  terrain(QByteArray("<!--<a>--><![CDATA[<a>]]><?a <a>?>").repeated(300)), true);
    }

    void refusesWhatTheReaderCannotBear() {
        staysSafe("64 attributes in every element", levelOf(filledTo(sixteenMiB, attributes(64))), false);
        staysSafe("16 MiB of comments", levelOf(filledTo(sixteenMiB, "<!---->")), false);
        staysSafe("only <", QByteArray(sixteenMiB, '<'), false);
        staysSafe("a reference too long for one",
                  levelOf("<CharacterNode name='&#" + QByteArray(65536, '0') + ";'/>"), false);
        staysSafe("references to another file",
                  "<!DOCTYPE CISG SYSTEM 'x'>" + terrain(filledTo(sixteenMiB - 30, "&a;")), false);
        for (const char *start : {"[", "SYSTEM '>' [", "SYSTEM '><!--' ["}) {
            staysSafe(start, "<!DOCTYPE CISG " + (start + ("<!ENTITY a 'b'>]>" + terrain("&a;-->"))), false);
        }
        staysSafe("a comment that is none", terrain("<!-->") + "<!-- -->", false);
        staysSafe("a zero byte", levelOf(QByteArray("a\0b", 3)), false);
    }

    void aSecondDocumentTypeIsRefused() {
        QVERIFY(levelIsSafeToParse("<!DOCTYPE CISG><CISG/>"));
        QVERIFY(!levelIsSafeToParse("<!DOCTYPE CISG><!DOCTYPE CISG><CISG/>"));
    }
};

DRUVELK_TEST_MAIN(HostileLevelTest)
#include "HostileLevelTest.moc"
