#include "environment/MipmappedTexture.h"

#include "environment/TextureUpload.h"

void loadMipmappedTexture(GLuint &name, const QString &fileName) {
    if (name == 0) {
        glGenTextures(1, &name);
    }
    const QImage picture = readGLImage(fileName);
    glBindTexture(GL_TEXTURE_2D, name);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    uploadWithMipmaps(GL_TEXTURE_2D, picture);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
}
