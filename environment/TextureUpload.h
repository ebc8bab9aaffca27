#pragma once

#include <QImage>
#include <QString>

class QImageReader;

/// A picture's file as it was found, without regard to letter case. Equal where a later look found the same
/// file, unchanged.
struct PictureFile {
    QString asked;       ///< As it was asked for.
    QString path;        ///< Absolute; of a regular file, without links.
    qint64 size = -1;    ///< In bytes; −1 where there is no regular file.
    qint64 modified = 0; ///< With `changed` (its contents or its entry): milliseconds since 1970.
    qint64 changed = 0;

    friend bool operator==(const PictureFile &a, const PictureFile &b) {
        return a.path == b.path && a.size == b.size && a.modified == b.modified && a.changed == b.changed;
    }
};

PictureFile findPicture(const QString &fileName);

/// Gives the file to the reader; false, before anything is decoded, where it is no regular file or larger
/// by its header than a card takes. Every file that is opened is named in the logging category
/// "druvelk.textures", for debugging.
bool openPicture(QImageReader &reader, const PictureFile &file);

/// The image in OpenGL's layout: 32-bit RGBA, rows bottom-up, tightly packed. A null image stays null.
QImage toGLImage(QImage image);

/// Reads a picture in OpenGL's layout. One that cannot be opened or read gives a null image, and is
/// reported.
QImage readGLImage(const PictureFile &file);

/// The same for a file's name, found without regard to letter case.
QImage readGLImage(const QString &fileName);

/// Warns in "druvelk.textures" of a picture that cannot be used, once until forgetReportedPictures.
void reportUnusablePicture(const PictureFile &file, const char *problem);

/// Call when a set-up is over: a picture that still cannot be used in the next is reported once more.
void forgetReportedPictures();

/// Specifies level 0 of the texture bound to `target` (a 2-D target or a face of a cube map) and
/// its mipmap chain, from an image of toGLImage. `mipmapComponents` is 3 or 4. A null image
/// empties every level, so that nothing of an earlier picture shows. Needs a current context.
void uploadWithMipmaps(unsigned int target, const QImage &glImage, int mipmapComponents = 3);

/// The same for a texture whose filters use no mipmaps: level 0 alone, and others only where scaling to
/// sides that are powers of two brings them along.
void uploadWithoutMipmaps(unsigned int target, const QImage &glImage, int components);
