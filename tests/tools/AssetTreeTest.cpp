#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// Runs the generator and compares what it writes.
class AssetTreeTest : public QObject {
    Q_OBJECT

private slots:
    void anotherRunGivesTheSameBytes();
    void aChangedFileStays();
    void failuresAreReported();
};

namespace {

int makeTree(const QString &output, const QString &only = {}) {
    QProcess process;
    QStringList arguments{output};
    if (!only.isEmpty()) {
        arguments << "--only" << only;
    }
    process.start(DRUVELK_ASSETS, arguments);
    return process.waitForFinished(500000) && process.exitStatus() == QProcess::NormalExit
               ? process.exitCode()
               : -1;
}

QByteArray content(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool replaceContent(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
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

} // namespace

void AssetTreeTest::anotherRunGivesTheSameBytes() {
    QTemporaryDir dir;
    QCOMPARE(makeTree(dir.path()), 0);
    // The built tree may hold pictures that someone has changed; its record says what was made.
    const QList<QByteArray> built = content(DRUVELK_DATA_TREE "/.made").split('\n');
    qint64 size = 0;
    const QStringList names = filesBelow(dir.path());
    QVERIFY(names.size() >= 49);
    for (const QString &name : names) {
        const QByteArray bytes = content(dir.filePath(name));
        const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
        QVERIFY2(built.contains(hash + ' ' + name.toUtf8()), qPrintable(name));
        size += bytes.size();
    }
    QVERIFY2(size < 60 * 1000 * 1000, qPrintable(QString::number(size)));
}

void AssetTreeTest::aChangedFileStays() {
    QTemporaryDir dir;
    const QString tile = dir.filePath("textures/tile.png");
    QCOMPARE(makeTree(dir.path(), "textures/tile"), 0);
    const QByteArray made = content(tile);
    QVERIFY(!made.isEmpty());

    QVERIFY(replaceContent(tile, "an artist's own picture"));
    QCOMPARE(makeTree(dir.path(), "textures/tile"), 0);
    QCOMPARE(makeTree(dir.path(), "textures/tile"), 0);
    QCOMPARE(content(tile), QByteArray("an artist's own picture"));

    QVERIFY(QFile::remove(tile));
    QCOMPARE(makeTree(dir.path(), "textures/tile"), 0);
    QCOMPARE(content(tile), made);
    QCOMPARE(filesBelow(dir.path()), QStringList{"textures/tile.png"});
}

void AssetTreeTest::failuresAreReported() {
    QTemporaryDir dir;
    const QString file = dir.filePath("file");
    QVERIFY(replaceContent(file, "in the way"));
    QVERIFY(makeTree(file + "/below", "textures/tile") > 0);
    QVERIFY(makeTree(dir.filePath("tree"), "no such thing") > 0);
    QVERIFY(!QFile::exists(dir.filePath("tree")));
    // A directory stands where the picture belongs.
    QVERIFY(QDir(dir.path()).mkpath("other/textures/tile.png/x"));
    QVERIFY(makeTree(dir.filePath("other"), "textures/tile") > 0);
}

QTEST_GUILESS_MAIN(AssetTreeTest)
#include "AssetTreeTest.moc"
