#include "environment/SkyTextures.h"

#include "environment/CubeMapSupport.h"
#include "environment/GLErrors.h"
#include "environment/TextureUpload.h"

namespace {

struct Face {
    const char *suffix;
    GLenum target; ///< Where the face belongs in a cube map.
    bool wall;     ///< It stands upright: the sky of four walls needs it.
};

constexpr std::array<Face, 6> faceTable{{{"_negx", GL_TEXTURE_CUBE_MAP_NEGATIVE_X_ARB, true},
                                         {"_posx", GL_TEXTURE_CUBE_MAP_POSITIVE_X_ARB, true},
                                         {"_negy", GL_TEXTURE_CUBE_MAP_NEGATIVE_Y_ARB, false},
                                         {"_posy", GL_TEXTURE_CUBE_MAP_POSITIVE_Y_ARB, false},
                                         {"_negz", GL_TEXTURE_CUBE_MAP_NEGATIVE_Z_ARB, true},
                                         {"_posz", GL_TEXTURE_CUBE_MAP_POSITIVE_Z_ARB, true}}};

QImage readFace(std::size_t face, const QString &baseName) {
    QString fileName = baseName;
    cubeFaceFileName(static_cast<int>(face), fileName);
    return readGLImage(fileName);
}

/// Filters of the texture bound to the target. Its edges are clamped: repeated, each would be
/// blended with the opposite edge and show as a line.
void setFilters(GLenum target, const char *checkedCall) {
    glTexParameterf(target, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    checkGLError(checkedCall, "GL error");
    glTexParameterf(target, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    checkGLError(checkedCall, "GL error");
    glTexParameteri(target, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(target, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
}

/// Uploads the picture, or empties the face once `complete` is false; clears `complete` for a null picture.
void uploadFace(GLenum target, const QImage &picture, int mipmapComponents, bool &complete) {
    complete = complete && !picture.isNull();
    uploadWithMipmaps(target, complete ? picture : QImage(), mipmapComponents);
    checkGLError("glTexImage2D", "GL error");
}

bool loadCubeMap(GLuint &name, const QString &baseName) {
    glPushAttrib(GL_ENABLE_BIT);
    glEnable(GL_TEXTURE_CUBE_MAP_ARB);
    glDisable(GL_TEXTURE_1D);
    glDisable(GL_TEXTURE_2D);
    if (name == 0) {
        glGenTextures(1, &name);
    }
    glBindTexture(GL_TEXTURE_CUBE_MAP_ARB, name);
    setFilters(GL_TEXTURE_CUBE_MAP_ARB, "glTexParameterf(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_MIN_FILTER)");
    bool complete = true;
    for (std::size_t face = 0; face < faceTable.size(); ++face) {
        const QImage picture = complete ? readFace(face, baseName) : QImage();
        // A cube has square faces only.
        complete = complete && picture.width() == picture.height();
        uploadFace(faceTable[face].target, picture, 4, complete);
    }
    glDisable(GL_TEXTURE_CUBE_MAP_ARB);
    glPopAttrib();
    return complete;
}

bool loadWalls(std::array<GLuint, 6> &names, const QString &baseName) {
    glPushAttrib(GL_ENABLE_BIT);
    glDisable(GL_TEXTURE_1D);
    glEnable(GL_TEXTURE_2D);
    if (names[0] == 0) {
        glGenTextures(static_cast<GLsizei>(names.size()), names.data());
    }
    bool complete = true;
    for (std::size_t face = 0; face < faceTable.size(); ++face) {
        if (!faceTable[face].wall) {
            continue;
        }
        glBindTexture(GL_TEXTURE_2D, names[face]);
        setFilters(GL_TEXTURE_2D, "glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER)");
        const QImage picture = complete ? readFace(face, baseName) : QImage();
        uploadFace(GL_TEXTURE_2D, picture, 3, complete);
    }
    glPopAttrib();
    return complete;
}

} // namespace

bool cubeFaceFileName(int face, QString &name) {
    const QString extension = name.right(4);
    name.chop(4);
    name += QLatin1String(faceTable.at(static_cast<std::size_t>(face)).suffix) + extension;
    return true;
}

bool loadSkyTextures(SkyTextures &sky, const char *baseName) {
    if (baseName == nullptr) {
        return false;
    }
    const QString name = QString::fromUtf8(baseName);
    return cubeMapsAvailable() ? loadCubeMap(sky.cubeMap, name) : loadWalls(sky.faces, name);
}
