#pragma once

#include "tools/assets/characters/Mesh.h"

#include <QByteArray>
#include <string>

/// A frame: the mesh's vertices as they are seen, in its order.
struct ModelFrame {
    std::string name; ///< At most 15 characters.
    std::vector<glm::vec3> vertices;
};

/// The bytes of a model file, which holds the vertices as the format wants them: mirrored in y and
/// lowered by 24.
QByteArray modelFile(const Mesh &mesh, const std::vector<ModelFrame> &frames);
