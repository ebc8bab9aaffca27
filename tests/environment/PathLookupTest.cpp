#include "environment/PathLookup.h"

#include "environment/TextureUpload.h"
#include "support/druvelkTest.h"

#include <QDir>
#include <QLoggingCategory>
#include <QTemporaryDir>

class PathLookupTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void findsWhatIsThere_data();
    void findsWhatIsThere();
    void picturesAreFound();

private:
    std::unique_ptr<QTemporaryDir> directory_;
};

void PathLookupTest::init() {
    directory_ = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir::setCurrent(directory_->path()));
    for (const QString directory : {"data/Terminator", "data/rat", "data/Rat"}) {
        QVERIFY(QDir().mkpath(directory));
    }
    for (const QString name : {"data/Terminator/Tris.md2", "data/Terminator/a.png", "data/Terminator/A.png",
                               "data/Rat/Small Gun.md2"}) {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

void PathLookupTest::findsWhatIsThere_data() {
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("found");
    const auto row = [](const char *asked, const char *found) {
        QTest::newRow(asked) << QString(asked) << QString(found);
    };
    row("./data/Terminator/Tris.md2", "./data/Terminator/Tris.md2");
    row("./data/terminator/tris.md2", "data/Terminator/Tris.md2");
    row("./DATA//terminator/../TERMINATOR/tris.MD2", "data/Terminator/../Terminator/Tris.md2");
    row("data/terminator/a.png", "data/Terminator/a.png");
    row("data/terminator/A.PNG", "data/Terminator/A.png");
    row("data/rat/small gun.md2", "data/Rat/Small Gun.md2"); // Though there is a "rat" too.
    row("data/Terminator/none.md2", "data/Terminator/none.md2");
    row("data/Terminator/a.png/b", "data/Terminator/a.png/b");
    row("", "");
    row("//", "//");
    row("./NOTHING", "./NOTHING");
    const QByteArray endless = QByteArray("../").repeated(1 << 21);
    row(endless, endless);
}

void PathLookupTest::findsWhatIsThere() {
    QFETCH(QString, asked);
    QFETCH(QString, found);
    QCOMPARE(existingPath(asked), found);
    if (!asked.isEmpty() && asked != QLatin1String("//")) {
        const QString base = directory_->path() + QLatin1Char('/');
        const QString absolute = existingPath(base + asked);
        QCOMPARE(QDir::cleanPath(absolute), QDir::cleanPath(base + found));
    }
}

void PathLookupTest::picturesAreFound() {
    QImage picture(3, 5, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(QStringLiteral("data/Rat/Blue.png")));
    QCOMPARE(readGLImage(QStringLiteral("./data/rat/blue.png")).size(), QSize(3, 5));
    QLoggingCategory::setFilterRules(QStringLiteral("druvelk.textures=false"));
    QVERIFY(readGLImage(QStringLiteral("./data/rat/red.png")).isNull());
}

DRUVELK_TEST_MAIN(PathLookupTest)
#include "PathLookupTest.moc"
