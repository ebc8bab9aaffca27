#pragma once

#include <QByteArray>
#include <QString>

/// Creates or replaces a regular file so that at every moment it is the old or the new one, whole,
/// and the new one is on the disk when this returns true. Links are followed, mode and owner kept.
/// Only where the folder cannot be written but the file can, or where its owner cannot be given to
/// another file, it is written in place, and its old bytes are put back if that fails.
///
/// A temporary file next to the target carries the new bytes until then; such files that a killed
/// save left are removed from the folder once they are older than a day.
class FileReplacement {
public:
    explicit FileReplacement(const QString &fileName);

    /// False where the target is no regular file or an operation fails, see problem().
    bool replaceBy(const QByteArray &bytes);

    QString problem() const { return problem_; }

private:
    bool fail(const char *operation);
    bool examineTarget();
    void removeStaleTemporaries() const;
    bool createTemporary();
    bool takeOver() const;
    bool fillTemporary(const QByteArray &bytes);
    bool putInPlace();
    bool syncFolder();
    bool writeInPlace(const QByteArray &bytes);

    QByteArray target_;
    QByteArray folder_; ///< With its "/".
    QByteArray temporary_;
    QString problem_;
    int file_ = -1;       ///< Of the temporary file, while it is open.
    bool exists_ = false; ///< The target, before; the rest says what it is like.
    unsigned int mode_ = 0666;
    unsigned int owner_ = 0;
    unsigned int group_ = 0;
};
