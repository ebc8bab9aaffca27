#pragma once

#include "tools/assets/characters/Mesh.h"

#include <QByteArray>

/// The bytes of a model file. `frames` are the mesh's vertices as they are seen, frame by frame;
/// the file holds them as the format wants them: mirrored in y and lowered by 24.
QByteArray modelFile(const Mesh &mesh, const std::vector<std::vector<glm::vec3>> &frames);
