#pragma once

#include "environment/SkyTextures.h"

struct Matrix4;

/// Draws the sky around the eye in the current colour, behind everything that is drawn later: the
/// cube map, or four walls and a floor where there are no cube maps. It has no hole below the horizon,
/// and none above where cube maps are. Looking into a direction of the world shows the cube map's opposite
/// direction. `skyRotation` is the view's rotation alone. Leaves OpenGL's state as it was, in modelview
/// mode; errors go to checkGLError. Needs a current context.
void drawSkyBox(const SkyTextures &sky, const Matrix4 &skyRotation);
