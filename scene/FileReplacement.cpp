#include "scene/FileReplacement.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <algorithm>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A name of its own, since the target's may already be as long as a name can be.
const QByteArray temporaryPrefix = QByteArrayLiteral(".druvelk-save-");
constexpr qsizetype digitsOfATemporary = 8;
constexpr std::time_t staleAfterSeconds = 24 * 60 * 60;
constexpr mode_t permissionBits = 07777;

/// The file that the name means once links are followed, also where it does not exist yet.
QByteArray resolved(QString fileName) {
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks && QFileInfo(fileName).isSymLink(); ++i) {
        fileName = QFileInfo(fileName).symLinkTarget();
    }
    return QFile::encodeName(fileName);
}

/// Writes all bytes to where the file stands, or fails with errno set.
bool writeAll(int file, const QByteArray &bytes) {
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t step =
            write(file, bytes.constData() + written, static_cast<std::size_t>(bytes.size() - written));
        if (step < 0 && errno != EINTR) {
            return false;
        }
        written += std::max<ssize_t>(step, 0);
    }
    return true;
}

bool overwrite(int file, const QByteArray &bytes) {
    return lseek(file, 0, SEEK_SET) == 0 && writeAll(file, bytes) && ftruncate(file, bytes.size()) == 0 &&
           fsync(file) == 0;
}

} // namespace

FileReplacement::FileReplacement(const QString &fileName)
    : target_(resolved(fileName)), folder_(target_.first(target_.lastIndexOf('/') + 1)) {
    if (folder_.isEmpty()) {
        folder_ = "./";
    }
}

bool FileReplacement::fail(const char *operation) {
    if (problem_.isEmpty()) {
        problem_ = QLatin1String(operation) + QLatin1String(": ") + qt_error_string(errno);
    }
    return false;
}

bool FileReplacement::replaceBy(const QByteArray &bytes) {
    if (!examineTarget()) {
        return false;
    }
    removeStaleTemporaries();
    if (!createTemporary()) {
        // A locked folder, or an owner that the user cannot give.
        const bool cannot = errno == EACCES || errno == EPERM || errno == EROFS || errno == EINVAL;
        return exists_ && cannot ? writeInPlace(bytes) : fail("make a file next to it");
    }
    if (fillTemporary(bytes) && putInPlace()) {
        return syncFolder();
    }
    unlink(temporary_.constData());
    return false;
}

/// Looks without opening: a FIFO would wait for its other end, a device would do something.
bool FileReplacement::examineTarget() {
    struct stat found {};
    if (stat(target_.constData(), &found) != 0) {
        return errno == ENOENT || fail("look at it");
    }
    if (!S_ISREG(found.st_mode)) {
        problem_ = QStringLiteral("it is not a regular file");
        return false;
    }
    exists_ = true;
    mode_ = found.st_mode & permissionBits;
    owner_ = found.st_uid;
    group_ = found.st_gid;
    return access(target_.constData(), W_OK) == 0 || fail("write it");
}

void FileReplacement::removeStaleTemporaries() const {
    const QString pattern =
        QString::fromLatin1(temporaryPrefix) + QString(digitsOfATemporary, QLatin1Char('?'));
    const QDir folder(QFile::decodeName(folder_));
    const auto names = folder.entryList({pattern}, QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (const QString &name : names) {
        const QByteArray path = folder_ + QFile::encodeName(name);
        struct stat found {};
        if (lstat(path.constData(), &found) == 0 && S_ISREG(found.st_mode) &&
            found.st_mtime < std::time(nullptr) - staleAfterSeconds) {
            unlink(path.constData());
        }
    }
}

bool FileReplacement::createTemporary() {
    constexpr int attempts = 100;
    for (int i = 0; i < attempts; ++i) {
        const quint32 number = QRandomGenerator::system()->generate();
        temporary_ = folder_ + temporaryPrefix +
                     QByteArray::number(number, 16).rightJustified(digitsOfATemporary, '0');
        file_ = open(temporary_.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode_ & 0777U);
        if (file_ >= 0 || errno != EEXIST) {
            break;
        }
    }
    if (file_ < 0 || !exists_ || takeOver()) {
        return file_ >= 0;
    }
    const int error = errno;
    close(file_);
    unlink(temporary_.constData());
    errno = error;
    return false;
}

/// Gives the temporary file the owner and the mode of the target. The owner first: giving a file
/// away takes some bits of its mode.
bool FileReplacement::takeOver() const {
    struct stat made {};
    if (fstat(file_, &made) != 0) {
        return false;
    }
    const bool isOwned = made.st_uid == owner_ && made.st_gid == group_;
    return (isOwned || fchown(file_, owner_, group_) == 0) && fchmod(file_, mode_) == 0;
}

bool FileReplacement::fillTemporary(const QByteArray &bytes) {
    const bool filled = writeAll(file_, bytes) || fail("write");
    const bool synced = filled && (fsync(file_) == 0 || fail("bring to the disk"));
    return (close(file_) == 0 || fail("close")) && synced;
}

bool FileReplacement::putInPlace() {
    return rename(temporary_.constData(), target_.constData()) == 0 || fail("put in place");
}

/// Without this the new name may be lost with the power, and the old one with it.
bool FileReplacement::syncFolder() {
    const int folder = open(folder_.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) {
        // A folder may be writable and yet not readable: then everything is brought to the disk.
        return errno == EACCES ? (sync(), true) : fail("open its folder");
    }
    // Some file systems know no such thing for folders.
    const bool synced = fsync(folder) == 0 || errno == EINVAL || fail("bring its folder to the disk");
    close(folder);
    return synced;
}

bool FileReplacement::writeInPlace(const QByteArray &bytes) {
    QFile reader(QFile::decodeName(target_));
    if (!reader.open(QIODevice::ReadOnly)) {
        return fail("read what it holds");
    }
    const QByteArray before = reader.readAll();
    if (reader.error() != QFileDevice::NoError) {
        return fail("read what it holds");
    }
    file_ = open(target_.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (file_ < 0) {
        return fail("open");
    }
    // Asked for first, so that a full disk shows before anything is overwritten.
    errno = posix_fallocate(file_, 0, std::max<off_t>(bytes.size(), 1));
    const bool written = (errno == 0 && overwrite(file_, bytes)) || fail("write in place");
    if (!written) {
        overwrite(file_, before);
    }
    return (close(file_) == 0 || fail("close")) && written;
}
