#include "scene/LevelDocument.h"

#include "environment/BackgroundNode.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"

namespace {

/// Makes a node and keeps a reference to it.
template <typename Node>
std::unique_ptr<SceneNode> made(Node *&reference) {
    auto node = std::make_unique<Node>();
    reference = node.get();
    return node;
}

} // namespace

std::unique_ptr<SceneNode> LevelDocument::createNode(const QString &tag) {
    if (auto node = CISG::createNode(tag)) {
        return node;
    }
    if (tag == QLatin1String("BackgroundNode")) {
        return made(background);
    }
    if (tag == QLatin1String("MeshNode")) {
        return made(mesh);
    }
    if (tag == QLatin1String("CharSetNode")) {
        return made(charSet);
    }
    if (tag == QLatin1String("CharacterNode")) {
        return std::make_unique<CharacterNode>();
    }
    return nullptr;
}

void LevelDocument::complete() {
    if (background == nullptr) {
        root.children.push_front(made(background));
        background->groundTexture = QStringLiteral("./data/textures/grass1.jpg");
        background->waterTexture = QStringLiteral("./data/textures/water1.jpg");
        background->cubeTexture = QStringLiteral("./data/CubeMap/clean1/mount.jpg");
        background->birdTexture = QStringLiteral("./data/textures/parrot.jpg");
    }
    if (mesh == nullptr) {
        root.children.push_back(made(mesh));
        mesh->texture = QStringLiteral("./data/textures/grass1.jpg");
        mesh->setSize(60, 4);
        mesh->build();
    }
    if (charSet == nullptr) {
        root.children.push_back(made(charSet));
    }
    charSet->padToSlots();
}
