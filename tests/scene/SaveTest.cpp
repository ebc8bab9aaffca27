#include "scene/LevelFile.h"

#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"
#include "tests/support/druvelkTest.h"

#include <QTemporaryDir>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr uid_t unprivileged = 65534;

/// A level of about the number of bytes.
void fill(LevelDocument &level, int bytes) {
    level.complete();
    auto &player = *level.charSet->characters.front();
    player.active = true;
    player.placed = true;
    player.name = QString(bytes, u'n');
}

QByteArray contentOf(const QString &fileName) {
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool put(const QString &fileName, const QByteArray &bytes) {
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// Runs in a child process without the rights of root, which writes anywhere. The child's result
/// as an exit status, -1 where it did not end by itself.
int unprivilegedly(const std::function<int()> &action) {
    const pid_t child = fork();
    if (child == 0) {
        const bool dropped = geteuid() != 0 || (setgid(unprivileged) == 0 && setuid(unprivileged) == 0);
        _exit(dropped ? action() : 99);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

/// Saving where it goes wrong. An earlier file must survive.
class SaveTest : public QObject {
    Q_OBJECT

private slots:
    void savingReplacesAndKeepsTheMode() {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("a.xml"));
        QVERIFY(put(file, QByteArray(100'000, 'x')));
        const auto mode = QFile::Permissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
        QVERIFY(QFile::setPermissions(file, mode));
        LevelDocument level;
        fill(level, 10);
        QVERIFY(saveLevel(level, file));
        QVERIFY(contentOf(file).startsWith("<CISG>") && contentOf(file).endsWith("</CISG>\n"));
        QCOMPARE(QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup),
                 QFile::Permissions(QFile::ReadGroup));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    }

    void aFullDiskKeepsTheEarlierFile() {
        const QTemporaryDir folder;
        const QByteArray path = folder.path().toLocal8Bit();
        if (mount("tmpfs", path.constData(), "tmpfs", 0, "size=64k") != 0) {
            QSKIP("This needs the right to mount a small disk");
        }
        const QString file = folder.filePath(QStringLiteral("a.xml"));
        const bool before = put(file, "precious");
        LevelDocument level;
        fill(level, 200'000);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^Cannot save .*a\\.xml")));
        const bool saved = saveLevel(level, file);
        const QByteArray after = contentOf(file);
        const auto left = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size();
        umount(path.constData());
        QVERIFY(before && !saved);
        QCOMPARE(after, QByteArray("precious"));
        QCOMPARE(left, 1);
    }

    void aReadOnlyFolderIsNoHindranceForAFileThatIsNot() {
        const QTemporaryDir folder;
        const QString writable = folder.filePath(QStringLiteral("writable.xml"));
        const QString locked = folder.filePath(QStringLiteral("locked.xml"));
        const QString absent = folder.filePath(QStringLiteral("absent.xml"));
        QVERIFY(put(writable, QByteArray(100'000, 'x')) && put(locked, "precious"));
        QVERIFY(QFile::setPermissions(writable, QFile::Permissions(0x6666)));
        QVERIFY(QFile::setPermissions(locked, QFile::Permissions(0x4444)));
        QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x5555)));
        LevelDocument level;
        fill(level, 10);
        const int result = unprivilegedly([&] {
            if (put(absent, "x") || put(locked, "x")) {
                return 2; // The folder is not read-only after all.
            }
            return saveLevel(level, writable) && !saveLevel(level, absent) && !saveLevel(level, locked) ? 0
                                                                                                        : 1;
        });
        QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
        QCOMPARE(result, 0);
        QVERIFY(contentOf(writable).startsWith("<CISG>") && contentOf(writable).endsWith("</CISG>\n"));
        QCOMPARE(contentOf(locked), QByteArray("precious"));
        QVERIFY(!QFile::exists(absent));
    }
};

DRUVELK_TEST_MAIN(SaveTest)
#include "SaveTest.moc"
