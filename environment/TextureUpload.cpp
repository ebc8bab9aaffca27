#include "environment/TextureUpload.h"

#include "environment/PathLookup.h"

#include <GL/gl.h>
#include <GL/glu.h>
#include <QLoggingCategory>
#include <algorithm>

namespace {

Q_LOGGING_CATEGORY(texturesLog, "druvelk.textures")

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

} // namespace

QImage toGLImage(const QImage &image) {
    if (image.isNull()) {
        return {};
    }
    return image.convertToFormat(QImage::Format_RGBA8888).mirrored(false, true);
}

QImage readGLImage(const QString &fileName) {
    // An empty name is no file; the image class would complain about it a second time.
    const QImage image = fileName.isEmpty() ? QImage() : QImage(existingPath(fileName));
    if (image.isNull()) {
        qCWarning(texturesLog).noquote() << "cannot read the picture" << fileName;
    }
    return toGLImage(image);
}

void uploadWithMipmaps(unsigned int target, const QImage &glImage, int mipmapComponents) {
    if (glImage.isNull()) {
        emptyLevels(target);
        return;
    }
    const int width = glImage.width();
    const int height = glImage.height();
    // A larger picture would be an error; the mipmaps are made from a smaller copy of it.
    if (std::max(width, height) <= largestSide(target)) {
        glTexImage2D(target, 0, 3, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, glImage.constBits());
    }
    gluBuild2DMipmaps(target, mipmapComponents, width, height, GL_RGBA, GL_UNSIGNED_BYTE,
                      glImage.constBits());
}
