#include "tests/support/files.h"
#include "tests/support/randomSeed.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

int makeTree(const QString &output, const QString &only) {
    QProcess process;
    process.start(DRUVELK_ASSETS, {output, QStringLiteral("--only"), only});
    return process.waitForFinished(500000) && process.exitStatus() == QProcess::NormalExit
               ? process.exitCode()
               : -1;
}

QStringList filesBelow(const QString &path) {
    QStringList names;
    QDirIterator files(path, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        names << QDir(path).relativeFilePath(files.next());
    }
    names.sort();
    return names;
}

/// A file's line in the record of what was made.
QString lineOf(const QString &tree, const QString &name) {
    const QByteArray bytes = contentOf(tree + u'/' + name);
    const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
    return QString::fromLatin1(hash) + u' ' + name;
}

} // namespace

/// Runs the generator and compares what it writes.
class AssetTreeTest : public QObject {
    Q_OBJECT

private slots:
    void anotherRunGivesTheSameBytes() {
        const QString built = QStringLiteral(DRUVELK_DATA_TREE);
        const QStringList record =
            QString::fromUtf8(contentOf(built + "/.made")).split(u'\n', Qt::SkipEmptyParts);
        QVERIFY(record.size() >= 49);
        // The built tree may hold pictures that someone has changed; they are none of its size.
        qint64 size = 0;
        for (const QString &name : filesBelow(built)) {
            size += record.contains(lineOf(built, name)) ? QFileInfo(built + u'/' + name).size() : 0;
        }
        QVERIFY2(size > 1000 * 1000 && size < 60 * 1000 * 1000, qPrintable(QString::number(size)));

        QRandomGenerator random(randomSeed());
        const auto anyName = [&](const char *pattern) {
            const QStringList lines = record.filter(QRegularExpression(pattern));
            return lines[random.bounded(int(lines.size()))].section(u' ', 1);
        };
        // The skins of weapons are made for all characters at once.
        const QString large = anyName("textures/|Dire/(Ann|Sm|St).*png").remove("Dire/");
        QTemporaryDir dir;
        for (const QString &name : {anyName("CubeMap/"), large, anyName("tris.md2")}) {
            QVERIFY2(makeTree(dir.path(), name) == 0, qPrintable(name));
        }
        const QStringList names = filesBelow(dir.path());
        QVERIFY(names.size() >= 6);
        for (const QString &name : names) {
            QVERIFY2(record.contains(lineOf(dir.path(), name)), qPrintable(name));
        }
    }

    void aChangedFileStays() {
        QTemporaryDir dir;
        const QString tile = dir.filePath("textures/tile.png");
        QCOMPARE(makeTree(dir.path(), "textures/tile"), 0);
        const QByteArray made = contentOf(tile);
        QVERIFY(!made.isEmpty());

        QVERIFY(writeFile(tile, "an artist's own picture"));
        QCOMPARE(makeTree(dir.path(), "textures/tile"), 0);
        QCOMPARE(makeTree(dir.path(), "textures/tile"), 0);
        QCOMPARE(contentOf(tile), QByteArray("an artist's own picture"));

        QVERIFY(QFile::remove(tile));
        QCOMPARE(makeTree(dir.path(), "textures/tile"), 0);
        QCOMPARE(contentOf(tile), made);
        QCOMPARE(filesBelow(dir.path()), QStringList{"textures/tile.png"});
    }

    void failuresAreReported() {
        QTemporaryDir dir;
        const QString file = dir.filePath("file");
        QVERIFY(writeFile(file, "in the way"));
        QVERIFY(makeTree(file + "/below", "textures/tile") > 0);
        QVERIFY(makeTree(dir.filePath("tree"), "no such thing") > 0);
        QVERIFY(!QFile::exists(dir.filePath("tree")));
        // A directory stands where the picture belongs.
        QVERIFY(QDir(dir.path()).mkpath("other/textures/tile.png/x"));
        QVERIFY(makeTree(dir.filePath("other"), "textures/tile") > 0);
    }
};

QTEST_GUILESS_MAIN(AssetTreeTest)
#include "AssetTreeTest.moc"
