#pragma once

#include <QImage>
#include <QString>

/// The image in OpenGL's layout: 32-bit RGBA, rows bottom-up, tightly packed. A null image stays null.
QImage toGLImage(const QImage &image);

/// Reads an image file, found without regard to letter case, and converts it with toGLImage. A file that
/// cannot be read gives a null image, and its name goes to the logging category "druvelk.textures".
QImage readGLImage(const QString &fileName);

/// Specifies level 0 of the texture bound to `target` (a 2-D target or a face of a cube map) and
/// its mipmap chain, from an image of toGLImage. `mipmapComponents` is 3 or 4. A null image
/// empties every level, so that nothing of an earlier picture shows. Needs a current context.
void uploadWithMipmaps(unsigned int target, const QImage &glImage, int mipmapComponents = 3);
