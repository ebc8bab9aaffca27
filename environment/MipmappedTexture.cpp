#include "environment/MipmappedTexture.h"

#include "environment/SharedTextures.h"

#include <GL/glext.h>
#include <QOpenGLContext>

namespace {

/// How many times as long as wide a pixel's part of the ground may be and still be sharp. Graphics cards do
/// this in hardware; the software renderer needs 1.7 times as long for a frame, whatever the number.
GLfloat anisotropy() {
    const QOpenGLContext *const context = QOpenGLContext::currentContext();
    const QByteArray renderer(reinterpret_cast<const char *>(glGetString(GL_RENDERER)));
    const bool software = renderer.contains("llvmpipe") || renderer.contains("softpipe");
    const bool offered = context->hasExtension(QByteArrayLiteral("GL_EXT_texture_filter_anisotropic"));
    return offered && !software ? 8 : 1;
}

} // namespace

void loadMipmappedTexture(GLuint &name, const QString &fileName) {
    const PictureFile file = findPicture(fileName);
    PictureFile &shown = shareTexture(name, TextureKind::Surface, {file}).front();
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    if (shown == file && file.size >= 0) {
        return;
    }
    const QImage picture = readGLImage(file);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    uploadWithMipmaps(GL_TEXTURE_2D, picture);
    shown = picture.isNull() ? PictureFile() : file;
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    if (const GLfloat ratio = anisotropy(); ratio > 1) {
        glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, ratio);
    }
}
