#include "environment/SharedTextures.h"

#include <GL/glext.h>
#include <QHash>
#include <QOpenGLContext>
#include <QOpenGLContextGroup>
#include <algorithm>
#include <map>

namespace {

struct SharedTexture {
    TextureKind kind;
    int owners = 1;
    std::vector<QString> paths = {};
    std::vector<PictureFile> shown = {};
};

using Textures = std::map<GLuint, SharedTexture>;

/// The textures of the contexts that share their names with the current one.
Textures &currentTextures() {
    static QHash<QOpenGLContextGroup *, Textures> groups;
    QOpenGLContextGroup *const group = QOpenGLContext::currentContext()->shareGroup();
    const auto known = groups.find(group);
    if (known != groups.end()) {
        return *known;
    }
    // The names go with the contexts, and the address may come back for others.
    QObject::connect(group, &QObject::destroyed, [group] { groups.remove(group); });
    return groups[group];
}

GLenum targetOf(TextureKind kind) {
    return kind == TextureKind::CubeMap ? GL_TEXTURE_CUBE_MAP_ARB : GL_TEXTURE_2D;
}

Textures::iterator addTexture(Textures &textures, TextureKind kind) {
    GLuint name = 0;
    glGenTextures(1, &name);
    return textures.insert_or_assign(name, SharedTexture{kind}).first;
}

} // namespace

std::vector<PictureFile> &shareTexture(GLuint &name, TextureKind kind,
                                       const std::vector<PictureFile> &files) {
    Textures &textures = currentTextures();
    std::vector<QString> paths;
    paths.reserve(files.size());
    for (const PictureFile &file : files) {
        paths.push_back(file.path);
    }
    auto found = std::find_if(textures.begin(), textures.end(), [&](const auto &texture) {
        return texture.second.kind == kind && texture.second.paths == paths;
    });
    if (found == textures.end()) {
        found = textures.find(name);
        if (found == textures.end() || found->second.kind != kind || found->second.owners > 1) {
            releaseTexture(name);
            found = addTexture(textures, kind);
        }
        found->second.paths = paths;
        found->second.shown.resize(files.size());
    } else if (found->first != name) {
        ++found->second.owners;
        releaseTexture(name);
    }
    name = found->first;
    glBindTexture(targetOf(kind), name);
    return found->second.shown;
}

void releaseTexture(GLuint &name) {
    Textures &textures = currentTextures();
    const auto own = textures.find(name);
    if (own != textures.end() && --own->second.owners == 0) {
        glDeleteTextures(1, &name);
        textures.erase(own);
    }
    name = 0;
}
