#include "scene/LevelFile.h"

#include "FaultyCalls.h"
#include "scene/SaveTarget.h"
#include "tests/support/druvelkTest.h"
#include "tests/support/files.h"
#include "tests/support/randomSeed.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr uid_t unprivileged = 65534;

/// Long enough that a kill finds a save at work.
const QByteArray before(3'000'000, 'o');
const QByteArray after(2'000'000, 'n');

struct stat statusOf(const QString &fileName) {
    struct stat status {};
    stat(QFile::encodeName(fileName).constData(), &status);
    return status;
}

QStringList filesBeside(const QString &fileName) {
    return QFileInfo(fileName).dir().entryList(QDir::Files | QDir::Hidden);
}

/// Runs in a child process: by default without the rights of root, who writes anywhere. The
/// child's result as an exit status, -1 where it did not end by itself.
int inChild(const std::function<int()> &action, bool asAnother = true) {
    const pid_t child = fork();
    if (child == 0) {
        const bool dropped =
            !asAnother || geteuid() != 0 || (setgid(unprivileged) == 0 && setuid(unprivileged) == 0);
        _exit(dropped ? action() : 99);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

qsizetype openFiles() {
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
}

/// Saves over the file, letting each call to the system fail once; what went wrong, or nothing.
const char *faultOfFaultySaves(const QString &file) {
    const auto beside = filesBeside(file);
    qsizetype openAtFirst = 0;
    for (const int error : {EIO, ENOSPC}) {
        int call = 0;
        for (const char *failed = ""; failed != nullptr; ++call) {
            if (!writeFile(file, before)) {
                return "the file cannot be prepared";
            }
            faultyCalls::arm(call, error);
            const bool saved = saveBytes(after, file);
            failed = faultyCalls::disarm();
            const QByteArray content = contentOf(file);
            // Closing the folder comes after all is done.
            if (saved != (failed == nullptr) && !(saved && qstrcmp(failed, "close") == 0)) {
                return failed == nullptr ? "a save fails without a reason" : failed;
            }
            if (content != after && (saved || content != before)) {
                return "the file is neither the old nor the new one";
            }
            if (filesBeside(file) != beside) {
                return "a temporary file is left";
            }
        }
        if (call < 6) {
            return "hardly any call was counted";
        }
        if (error == EIO) {
            openAtFirst = openFiles();
        } else if (openFiles() != openAtFirst) {
            return "a file stays open";
        }
    }
    return "";
}

} // namespace

/// Saving where it goes wrong. The file is the old or the new one, whole.
class SaveTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
        file = folder->filePath(QStringLiteral("a.xml"));
        QVERIFY(writeFile(file, before));
    }

    void aLinkedFileIsReplacedAndKeepsModeAndOwner() {
        const QString link = folder->filePath(QStringLiteral("link.xml"));
        QVERIFY(QFile::link(QStringLiteral("a.xml"), link));
        QVERIFY(QFile::setPermissions(file, QFile::Permissions(0x6040)));
        const bool given = chown(QFile::encodeName(file).constData(), unprivileged, getegid()) == 0;
        QVERIFY(saveBytes(after, link));
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(contentOf(file), after);
        QCOMPARE(statusOf(file).st_mode & 07777U, 0640U);
        QCOMPARE(statusOf(file).st_uid, given ? unprivileged : geteuid());
        QCOMPARE(filesBeside(file).size(), 2);
    }

    void everyFailingCallIsSeen() { QCOMPARE(faultOfFaultySaves(file), ""); }

    /// In a folder that cannot be written, and where another user owns the file.
    void writesInPlaceOnlyWhereItMust() {
        const QString locked = folder->filePath(QStringLiteral("locked.xml"));
        const QString absent = folder->filePath(QStringLiteral("absent.xml"));
        QVERIFY(writeFile(locked, before));
        QVERIFY(QFile::setPermissions(file, QFile::Permissions(0x6666)));
        QVERIFY(QFile::setPermissions(locked, QFile::Permissions(0x4444)));
        struct stat was = statusOf(file);
        const auto save = [&] {
            const char *const fault = faultOfFaultySaves(file);
            std::fputs(fault, stderr);
            const bool foretold = whyNotWritable(file).isEmpty() && !whyNotWritable(locked).isEmpty();
            return foretold && qstrlen(fault) == 0 && !saveBytes(after, locked) ? 0 : 1;
        };
        QCOMPARE(inChild(save), 0);
        QVERIFY(geteuid() != 0 || statusOf(file).st_ino == was.st_ino);
        was = statusOf(file);
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x5555)));
        QCOMPARE(inChild([&] {
                     return writeFile(absent, "x") || whyNotWritable(absent).isEmpty()
                                ? 2
                                : save() + (saveBytes(after, absent) ? 1 : 0);
                 }),
                 0);
        QCOMPARE(contentOf(file), after);
        QCOMPARE(contentOf(locked), before);
        QVERIFY(statusOf(file).st_ino == was.st_ino && statusOf(file).st_uid == was.st_uid);
    }

    void aKilledSaveLeavesAWholeFile() {
        for (int call = 0, result = -1; result == -1; ++call) {
            QVERIFY(writeFile(file, before));
            result = inChild(
                [&] {
                    faultyCalls::arm(call, faultyCalls::killed);
                    return saveBytes(after, file) ? 0 : 1;
                },
                false);
            QVERIFY(result <= 0 && (result == -1 || call > 5));
            const QByteArray content = contentOf(file);
            QVERIFY(content == after || (result == -1 && content == before));
        }
        QRandomGenerator random(randomSeed());
        for (int i = 0; i < 100; ++i) {
            const pid_t child = fork();
            if (child == 0) {
                while (saveBytes(before, file) && saveBytes(after, file)) {
                }
                _exit(0);
            }
            usleep(random.bounded(20'000U));
            QVERIFY(child > 0 && kill(child, SIGKILL) == 0 && waitpid(child, nullptr, 0) == child);
            const QByteArray content = contentOf(file);
            QVERIFY(content == before || content == after);
        }
    }

    void whatAKillLeftIsTakenAwayAfterADay() {
        const auto make = [this](const char *name, int hours) {
            QFile made(folder->filePath(QLatin1String(name)));
            return made.open(QIODevice::WriteOnly) && made.write("x") == 1 && made.flush() &&
                   made.setFileTime(QDateTime::currentDateTime().addSecs(-3600 * hours),
                                    QFileDevice::FileModificationTime);
        };
        QVERIFY(make(".druvelk-save-0123abcd", 25) && make(".druvelk-save-89abcdef", 23));
        QVERIFY(make(".druvelk-save-0123abcd.xml", 25) && make("a.xml.abcdef", 25));
        QVERIFY(saveBytes(after, file));
        QCOMPARE(filesBeside(file), (QStringList{QStringLiteral(".druvelk-save-0123abcd.xml"),
                                                 QStringLiteral(".druvelk-save-89abcdef"),
                                                 QStringLiteral("a.xml"), QStringLiteral("a.xml.abcdef")}));
    }

    void aNameMayBeAsLongAsTheSystemAllows() {
        const QString longest = folder->filePath(QString(251, u'n') + QStringLiteral(".xml"));
        QVERIFY(saveBytes(before, longest) && saveBytes(after, longest));
        QCOMPARE(contentOf(longest), after);
    }

    void onlyRegularFilesAreReplaced() {
        const QString fifo = folder->filePath(QStringLiteral("fifo.xml"));
        QCOMPARE(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
        QVERIFY(!saveBytes(after, fifo) && !saveBytes(after, folder->path()));
        QVERIFY(S_ISFIFO(statusOf(fifo).st_mode));
    }

    void cleanup() { QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777))); }

private:
    std::unique_ptr<QTemporaryDir> folder;
    QString file;
};

DRUVELK_TEST_MAIN(SaveTest)
#include "SaveTest.moc"
