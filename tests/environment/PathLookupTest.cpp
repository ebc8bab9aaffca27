#include "environment/PathLookup.h"

#include "environment/TextureUpload.h"
#include "support/druvelkTest.h"

#include <QDir>
#include <QTemporaryDir>

class PathLookupTest : public QObject {
    Q_OBJECT

private slots:
    void findsWhatIsThere() {
        const QTemporaryDir scratch;
        QVERIFY(QDir::setCurrent(scratch.path()));
        for (const QString directory : {"data/Terminator", "data/rat", "data/Rat"}) {
            QVERIFY(QDir().mkpath(directory));
        }
        QImage picture(3, 5, QImage::Format_RGB32);
        picture.fill(Qt::red);
        for (const QString name :
             {"Terminator/Tris.md2", "Terminator/a.png", "Terminator/A.png", "Rat/Small Gun.md2"}) {
            QVERIFY(picture.save("data/" + name, "png"));
        }
        const QString endless = QString("../").repeated(1 << 21);
        for (const auto &[asked, found] : std::vector<std::pair<QString, QString>>{
                 {"./data/Terminator/Tris.md2", "./data/Terminator/Tris.md2"},
                 {"./DATA//terminator/../TERMINATOR/tris.MD2", "data/Terminator/../Terminator/Tris.md2"},
                 {"data/terminator/a.png", "data/Terminator/a.png"},
                 {"data/terminator/A.PNG", "data/Terminator/A.png"},
                 {"data/rat/small gun.md2", "data/Rat/Small Gun.md2"}, // Though there is a "rat" too.
                 {"data/Terminator/none.md2", "data/Terminator/none.md2"},
                 {"data/Terminator/a.png/b", "data/Terminator/a.png/b"},
                 {"./NOTHING", "./NOTHING"},
                 {endless, endless}}) {
            QCOMPARE(existingPath(asked), found);
            const QString base = scratch.path() + '/';
            QCOMPARE(QDir::cleanPath(existingPath(base + asked)), QDir::cleanPath(base + found));
        }
        QCOMPARE(existingPath({}), QString());
        QCOMPARE(existingPath("//"), "//");
        QCOMPARE(readGLImage(QString("./data/TERMINATOR/a.PNG")).size(), QSize(3, 5));
    }
};

DRUVELK_TEST_MAIN(PathLookupTest)
#include "PathLookupTest.moc"
