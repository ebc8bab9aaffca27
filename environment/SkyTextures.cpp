#include "environment/SkyTextures.h"

#include "environment/CubeMapSupport.h"
#include "environment/GLErrors.h"
#include "environment/SharedTextures.h"

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

PictureFile findFace(std::size_t face, const QString &baseName) {
    QString fileName = baseName;
    cubeFaceFileName(static_cast<int>(face), fileName);
    return findPicture(fileName);
}

/// A cube has square faces only: another picture is as none.
QImage readCubeFace(const PictureFile &file) {
    const QImage picture = readGLImage(file);
    if (picture.width() == picture.height()) {
        return picture;
    }
    reportUnusablePicture(file, "not square, and so no face of a sky:");
    return {};
}

/// Brings the face that belongs to `target` up to date with its file, or empties it once `complete` is
/// false; clears `complete` where the file gives no picture.
template <typename Read>
void updateFace(GLenum target, const PictureFile &file, int components, PictureFile &shown, bool &complete,
                Read read) {
    const bool upToDate = complete ? shown == file && file.size >= 0 : shown.size < 0;
    if (upToDate) {
        return;
    }
    const QImage picture = complete ? read(file) : QImage();
    complete = !picture.isNull();
    uploadWithoutMipmaps(target, picture, components);
    checkGLError("glTexImage2D", "GL error");
    shown = complete ? file : PictureFile();
}

bool loadCubeMap(GLuint &name, const QString &baseName) {
    std::vector<PictureFile> files;
    for (std::size_t face = 0; face < faceTable.size(); ++face) {
        files.push_back(findFace(face, baseName));
    }
    glPushAttrib(GL_ENABLE_BIT);
    glEnable(GL_TEXTURE_CUBE_MAP_ARB);
    glDisable(GL_TEXTURE_1D);
    glDisable(GL_TEXTURE_2D);
    std::vector<PictureFile> &shown = shareTexture(name, TextureKind::CubeMap, files);
    setSkyFilters(GL_TEXTURE_CUBE_MAP_ARB, "glTexParameterf(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_MIN_FILTER)");
    bool complete = true;
    for (std::size_t face = 0; face < faceTable.size(); ++face) {
        updateFace(faceTable[face].target, files[face], 4, shown[face], complete, readCubeFace);
    }
    glDisable(GL_TEXTURE_CUBE_MAP_ARB);
    glPopAttrib();
    return complete;
}

bool loadWalls(std::array<GLuint, 6> &names, const QString &baseName) {
    glPushAttrib(GL_ENABLE_BIT);
    glDisable(GL_TEXTURE_1D);
    glEnable(GL_TEXTURE_2D);
    bool complete = true;
    for (std::size_t face = 0; face < faceTable.size(); ++face) {
        if (!faceTable[face].wall) {
            continue;
        }
        const PictureFile file = findFace(face, baseName);
        PictureFile &shown = shareTexture(names[face], TextureKind::Wall, {file}).front();
        setSkyFilters(GL_TEXTURE_2D, "glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER)");
        updateFace(GL_TEXTURE_2D, file, 3, shown, complete,
                   [](const PictureFile &wall) { return readGLImage(wall); });
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

void setSkyFilters(GLenum target, const char *checkedCall) {
    glTexParameterf(target, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    checkGLError(checkedCall, "GL error");
    glTexParameterf(target, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    checkGLError(checkedCall, "GL error");
    glTexParameteri(target, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(target, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
}

bool loadSkyTextures(SkyTextures &sky, const char *baseName) {
    if (baseName == nullptr) {
        return false;
    }
    const QString name = QString::fromUtf8(baseName);
    return cubeMapsAvailable() ? loadCubeMap(sky.cubeMap, name) : loadWalls(sky.faces, name);
}
