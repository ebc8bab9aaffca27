#include "environment/TextureUpload.h"

#include "environment/Logging.h"
#include "environment/PathLookup.h"

#include <GL/gl.h>
#include <GL/glu.h>
#include <QFileInfo>
#include <QImageReader>
#include <QSet>
#include <algorithm>
#include <bit>
#include <utility>

namespace {

GLint largestSide(GLenum target) {
    GLint side = 0;
    glGetIntegerv(target == GL_TEXTURE_2D ? GL_MAX_TEXTURE_SIZE : GL_MAX_CUBE_MAP_TEXTURE_SIZE, &side);
    return side;
}

/// Empties every level the driver knows; one more would be an error.
void emptyLevels(GLenum target) {
    GLint level = 0;
    for (GLint side = largestSide(target); side > 0; side /= 2) {
        glTexImage2D(target, level++, 3, 0, 0, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    }
}

/// No card's textures are longer. Of the area, the image class takes no more in four bytes a texel; in one
/// byte or one bit it would, and the conversion would cost gigabytes.
constexpr int longestSide = 32768;
constexpr qint64 mostTexels = qint64{8192} * 4096;

/// By its header: decoding would take the memory already.
bool isTooLarge(const QSize &size) {
    return std::max(size.width(), size.height()) > longestSide ||
           qint64{size.width()} * size.height() > mostTexels;
}

/// By their paths.
QSet<QString> &reportedPictures() {
    static QSet<QString> paths;
    return paths;
}

/// Blue, green, red, alpha to red, green, blue, alpha.
QRgb swapped(QRgb texel) {
    return (texel & 0xff00ff00U) | ((texel >> 16U) & 0xffU) | ((texel & 0xffU) << 16U);
}

/// Turns the picture upside down and swaps red and blue, in one pass.
void turnIntoGLLayout(QImage &image) {
    const int width = image.width();
    const int last = image.height() - 1;
    for (int y = 0; y <= last / 2; ++y) {
        auto *const upper = reinterpret_cast<QRgb *>(image.scanLine(y));
        auto *const lower = reinterpret_cast<QRgb *>(image.scanLine(last - y));
        for (int x = 0; x < width; ++x) {
            const QRgb texel = swapped(upper[x]);
            upper[x] = swapped(lower[x]);
            lower[x] = texel;
        }
    }
    image.reinterpretAsFormat(QImage::Format_RGBA8888);
}

bool isPowerOfTwo(int side) {
    return std::has_single_bit(static_cast<unsigned>(side));
}

} // namespace

PictureFile findPicture(const QString &fileName) {
    PictureFile file;
    file.asked = fileName;
    if (fileName.isEmpty()) {
        return file;
    }
    const QFileInfo info(existingPath(fileName));
    file.path = info.isFile() ? info.canonicalFilePath() : info.absoluteFilePath();
    if (info.isFile()) {
        file.size = info.size();
        file.modified = info.lastModified().toMSecsSinceEpoch();
        file.changed = info.metadataChangeTime().toMSecsSinceEpoch();
    }
    return file;
}

bool openPicture(QImageReader &reader, const PictureFile &file) {
    if (file.size < 0) {
        return false;
    }
    qCDebug(texturesLog) << "reading" << file.path;
    reader.setFileName(file.path);
    return !isTooLarge(reader.size());
}

// A large picture is held once: all steps work in place.
QImage toGLImage(QImage image) {
    const bool decodersOwn =
        image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32;
    if (decodersOwn && std::endian::native == std::endian::little) {
        turnIntoGLLayout(image);
        return image;
    }
    image.convertTo(QImage::Format_RGBA8888);
    return std::move(image).mirrored(false, true);
}

QImage readGLImage(const PictureFile &file) {
    QImageReader reader;
    QImage image = openPicture(reader, file) ? reader.read() : QImage();
    if (image.isNull()) {
        reportUnusablePicture(file, "cannot read the picture");
    }
    return toGLImage(std::move(image));
}

QImage readGLImage(const QString &fileName) {
    return readGLImage(findPicture(fileName));
}

void reportUnusablePicture(const PictureFile &file, const char *problem) {
    if (!reportedPictures().contains(file.path)) {
        reportedPictures().insert(file.path);
        qCWarning(texturesLog) << problem << file.asked;
    }
}

void forgetReportedPictures() {
    reportedPictures().clear();
}

void uploadWithMipmaps(unsigned int target, const QImage &glImage, int mipmapComponents) {
    if (glImage.isNull()) {
        emptyLevels(target);
        return;
    }
    gluBuild2DMipmaps(target, mipmapComponents, glImage.width(), glImage.height(), GL_RGBA, GL_UNSIGNED_BYTE,
                      glImage.constBits());
}

void uploadWithoutMipmaps(unsigned int target, const QImage &glImage, int components) {
    const int width = glImage.width();
    const int height = glImage.height();
    if (isPowerOfTwo(width) && isPowerOfTwo(height) && std::max(width, height) <= largestSide(target)) {
        glTexImage2D(target, 0, components, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, glImage.constBits());
    } else {
        uploadWithMipmaps(target, glImage, components);
    }
}
