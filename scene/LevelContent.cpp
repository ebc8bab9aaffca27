#include "scene/LevelContent.h"

#include "environment/BackgroundNode.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"

LevelContent contentOf(const LevelDocument &level, const LevelContent &earlier) {
    const BackgroundContent &background = *level.background;
    const TerrainContent &terrain = *level.mesh;
    LevelContent content{background, terrain, level.mesh->heights(earlier.heights), {}};
    content.players.reserve(level.charSet->characters.size());
    for (const auto &player : level.charSet->characters) {
        content.players.push_back(*player);
    }
    return content;
}

void setContent(LevelDocument &level, const LevelContent &content) {
    static_cast<BackgroundContent &>(*level.background) = content.background;
    static_cast<TerrainContent &>(*level.mesh) = content.terrain;
    level.mesh->setHeights(content.heights);
    auto &characters = level.charSet->characters;
    characters.resize(content.players.size());
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (!characters[i]) {
            characters[i] = std::make_unique<CharacterNode>();
        }
        static_cast<PlayerContent &>(*characters[i]) = content.players[i];
    }
}
