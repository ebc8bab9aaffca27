#include "environment/MipmappedTexture.h"

#include "environment/SharedTextures.h"

#include <GL/glext.h>
#include <QOpenGLContext>

namespace {

/// Keeps the ground sharp where it is seen aslant. A frame may take a third longer for it, not more.
constexpr GLfloat anisotropy = 2;

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
    if (QOpenGLContext::currentContext()->hasExtension("GL_EXT_texture_filter_anisotropic")) {
        glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, anisotropy);
    }
}
