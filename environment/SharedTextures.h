#pragma once

#include "environment/TextureUpload.h"

#include <GL/gl.h>
#include <vector>

/// What a texture is for: textures of different kinds are never shared.
enum class TextureKind { Surface, Wall, CubeMap };

/// Makes `name` the texture of these pictures in the current context's share group and binds it: the one
/// that somebody uses for the same paths already, else the owner's own, else a new one. Gives what each
/// of its pictures shows; one that differs from the file is the caller's to fill and to bring up to
/// date. A picture that shows nothing is a PictureFile as constructed. The reference holds until the
/// next call of either function. Each owner gives its name back with releaseTexture.
std::vector<PictureFile> &shareTexture(GLuint &name, TextureKind kind, const std::vector<PictureFile> &files);

/// Gives a texture back and sets `name` to 0; the last owner's call deletes it. A name that the current
/// context does not know is left to its own contexts. Needs a current context.
void releaseTexture(GLuint &name);
