#include "scene/SaveTarget.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(editorMain)
};

QString textOf(int error) {
    switch (error) {
    case ENAMETOOLONG:
        return Texts::tr("This name is too long.");
    case ENOENT:
    case ENOTDIR:
        return Texts::tr("There is no such folder.");
    case ELOOP:
        return Texts::tr("This link leads nowhere.");
    case EROFS:
        return Texts::tr("This disk cannot be written.");
    default:
        return Texts::tr("This folder cannot be written.");
    }
}

/// The error number of an access refused to this process; 0 where it is granted.
int refusal(const QByteArray &path, int mode) {
    return faccessat(AT_FDCWD, path.constData(), mode, AT_EACCESS) == 0 ? 0 : errno;
}

QString whyNotExisting(const QByteArray &path, const struct stat &status) {
    if (S_ISDIR(status.st_mode)) {
        return Texts::tr("This is a folder.");
    }
    if (!S_ISREG(status.st_mode)) {
        return Texts::tr("This is no ordinary file.");
    }
    return refusal(path, W_OK) == 0 ? QString() : Texts::tr("This file cannot be written.");
}

QString whyNotNew(const QByteArray &path) {
    const qsizetype slash = path.lastIndexOf('/');
    const QByteArray folder = slash < 0 ? QByteArray(".") : path.left(slash + 1);
    const int error = refusal(folder, W_OK | X_OK);
    return error == 0 ? QString() : textOf(error);
}

} // namespace

QString whyNotWritable(const QString &fileName) {
    constexpr int mostLinks = 40; // As many as the system follows.
    QString name = fileName;
    for (int links = 0; links < mostLinks; ++links) {
        const QByteArray path = QFile::encodeName(name);
        struct stat status {};
        if (stat(path.constData(), &status) == 0) {
            return whyNotExisting(path, status);
        }
        if (errno != ENOENT) {
            return textOf(errno);
        }
        if (lstat(path.constData(), &status) != 0) {
            return whyNotNew(path);
        }
        // A link to a file that is still to be made.
        name = QFileInfo(name).symLinkTarget();
    }
    return textOf(ELOOP);
}
