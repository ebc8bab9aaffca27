#pragma once

#include <GL/gl.h>
#include <QString>

/// Reads a picture into the 2-D texture `name`, which is made where it is 0 and otherwise used
/// again, sets smooth filtering with mipmaps, and lets the texture modulate the surface's colour.
/// A file that cannot be read leaves the texture empty: surfaces show their plain colour. The
/// texture stays bound; bracket a row of loads with glPushAttrib(GL_ENABLE_BIT) and
/// glPopAttrib(). Needs a current context.
void loadMipmappedTexture(GLuint &name, const QString &fileName);
