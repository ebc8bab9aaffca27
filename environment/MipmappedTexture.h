#pragma once

#include <GL/gl.h>
#include <QString>

/// Makes `name` the 2-D texture of a picture, with smooth filtering and mipmaps, and lets textures modulate
/// the surface's colour. The file is read only where no texture shows it as it is now: owners of the
/// same picture share one name (see shareTexture), and give it back with releaseTexture. A file that
/// cannot be read leaves the texture empty: surfaces show their plain colour. The texture stays bound;
/// bracket a row of loads with glPushAttrib(GL_ENABLE_BIT) and glPopAttrib(). Needs a current context.
void loadMipmappedTexture(GLuint &name, const QString &fileName);
