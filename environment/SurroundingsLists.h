#pragma once

#include <GL/gl.h>

/// The terrain square that the surroundings are fitted to.
struct SurroundingsSize {
    int dimension; ///< Side in map units, above 0.
    int density;   ///< Grid points per map unit, above 0.
    float height;  ///< Vertical translation and scale of the ground list.
};

/// Each compiles one display list without running it. Needs a current context.

/// A translation to the square's centre and a scale of the height, both left in effect, then the
/// ground frame around the square, at height 0 of the world.
void compileGroundList(GLuint list, const SurroundingsSize &size);

/// The water plane over the square. Has no transform of its own.
void compileWaterList(GLuint list, const SurroundingsSize &size);

/// The square's outline a little above the ground; to be called after the ground list.
void compileOutlineList(GLuint list, const SurroundingsSize &size);
