#include "environment/TextureUpload.h"

#include <GL/gl.h>
#include <GL/glu.h>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(texturesLog, "druvelk.textures")

/// Levels of the largest texture any driver of this OpenGL version takes (16384 texels a side).
constexpr int mostLevels = 15;

} // namespace

QImage toGLImage(const QImage &image) {
    if (image.isNull()) {
        return {};
    }
    return image.convertToFormat(QImage::Format_RGBA8888).mirrored(false, true);
}

QImage readGLImage(const QString &fileName) {
    const QImage image(fileName);
    if (image.isNull()) {
        qCWarning(texturesLog).noquote() << "cannot read the picture" << fileName;
    }
    return toGLImage(image);
}

void uploadWithMipmaps(unsigned int target, const QImage &glImage, int mipmapComponents) {
    if (glImage.isNull()) {
        for (int level = 0; level < mostLevels; ++level) {
            glTexImage2D(target, level, 3, 0, 0, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        }
        return;
    }
    const int width = glImage.width();
    const int height = glImage.height();
    glTexImage2D(target, 0, 3, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, glImage.constBits());
    gluBuild2DMipmaps(target, mipmapComponents, width, height, GL_RGBA, GL_UNSIGNED_BYTE,
                      glImage.constBits());
}
