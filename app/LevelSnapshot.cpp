#include "app/LevelSnapshot.h"

#include "environment/BackgroundNode.h"
#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"

#include <algorithm>

namespace {

using Players = std::vector<std::unique_ptr<CharacterNode>>;

CellContent contentOf(const MapCell &cell, const Players &players) {
    CellContent content{cell.color, cell.water, -1};
    // The next drawing forgets an active player that has moved on; so does this.
    if (!cell.vacant && (cell.player->cell == cell.index || !cell.player->active)) {
        const auto slot = std::find_if(players.begin(), players.end(),
                                       [&cell](const auto &player) { return player.get() == cell.player; });
        content.player = static_cast<int>(slot - players.begin());
    }
    return content;
}

void setContent(MapCell &cell, const CellContent &content, const Players &players) {
    cell.color = content.color;
    cell.water = content.water;
    cell.vacant = content.player < 0;
    cell.player = cell.vacant ? nullptr : players.at(static_cast<std::size_t>(content.player)).get();
}

bool sameSize(const LevelSnapshot &a, const LevelSnapshot &b) {
    return a.content.terrain.dimension == b.content.terrain.dimension &&
           a.content.terrain.density == b.content.terrain.density &&
           a.content.heights.size() == b.content.heights.size();
}

/// Whether the preview has to make textures, lists or lights anew.
bool needsSetUp(const LevelSnapshot &shown, const LevelSnapshot &wanted) {
    const BackgroundContent &a = shown.content.background;
    const BackgroundContent &b = wanted.content.background;
    return a.groundTexture != b.groundTexture || a.waterTexture != b.waterTexture ||
           a.cubeTexture != b.cubeTexture || a.sunColor != b.sunColor || a.fog != b.fog ||
           (b.water && !a.water) || shown.content.terrain.texture != wanted.content.terrain.texture ||
           !sameSize(shown, wanted);
}

} // namespace

LevelSnapshot snapshotOf(const GLMapWidget &view, const LevelSnapshot &earlier) {
    LevelSnapshot snapshot{contentOf(*view.document, earlier.content), {}, view.dimension, view.accuracy};
    const Players &players = view.document->charSet->characters;
    std::transform(view.cells->cells.begin(), view.cells->cells.end(), snapshot.cells.begin(),
                   [&players](const MapCell &cell) { return contentOf(cell, players); });
    return snapshot;
}

void restore(GLMapWidget &view, const LevelSnapshot &shown, const LevelSnapshot &wanted) {
    view.cells->forgetPlayers(); // Some of them may go.
    setContent(*view.document, wanted.content);
    view.dimension = wanted.dimension;
    view.accuracy = wanted.accuracy;
    view.setRandomGeo(wanted.content.terrain.randomGeography);
    if (!sameSize(shown, wanted)) {
        view.pointsPerSide = view.document->mesh->pointsPerSide();
        view.refreshTerrain();
    }
    const Players &players = view.document->charSet->characters;
    for (std::size_t i = 0; i < wanted.cells.size(); ++i) {
        setContent(view.cells->cells[i], wanted.cells[i], players);
    }
    if (shown.content.background.dayTime != wanted.content.background.dayTime) {
        view.document->background->updateSkyTint();
    }
    if (shown.content.heights != wanted.content.heights) {
        view.normalsDirty = true;
        view.previewStale = true;
    }
    if (needsSetUp(shown, wanted)) {
        view.setDirty(true);
    }
    view.update();
}
