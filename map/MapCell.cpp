#include "map/MapCell.h"

#include "scene/CharacterNames.h"
#include "scene/CharacterNode.h"

#include <GL/gl.h>

namespace {

constexpr float redStep = 0.05F;
constexpr float greenBlueStep = 0.025F;
constexpr float topLimit = 0.1F;     ///< No raise once red is at or below it.
constexpr float waterLimit = 0.965F; ///< From this red on a cell is a lake.
constexpr std::array<float, 3> groundColor{0.95F, 0.475F, 0.475F};
constexpr std::array<float, 3> waterColor{0.05F, 0.05F, 0.75F};

/// The tile's outer margin, as a part of its picture, that is not shown.
constexpr float tileMargin = 0.05F;
/// Width of the frame that a player's mark leaves of the cell.
constexpr float frame = 0.015F;

void sendCorners(const std::array<Vec3, 4> &corners) {
    glBegin(GL_POLYGON);
    for (const Vec3 &corner : corners) {
        glVertex3fv(&corner.x);
    }
    glEnd();
}

std::array<Vec3, 4> square(float s) {
    return {{{-s, -s, 0}, {s, -s, 0}, {s, s, 0}, {-s, s, 0}}};
}

} // namespace

bool MapCell::stepLevel(bool up) {
    if (up) {
        if (water) {
            water = false;
            color = groundColor;
            return true;
        }
        if (!(color[0] > topLimit)) {
            return false;
        }
        color = {color[0] - redStep, color[1] - greenBlueStep, color[2] - greenBlueStep};
        return true;
    }
    if (water || color[0] >= waterLimit) {
        return false;
    }
    color = {color[0] + redStep, color[1] + greenBlueStep, color[2] + greenBlueStep};
    if (color[0] >= waterLimit) {
        water = true;
        color = waterColor;
    }
    return true;
}

void MapCell::showHeight(float height) {
    const float red = (18.0F - height) * 0.05F + 0.05F;
    water = !(red < waterLimit);
    color = water ? waterColor : std::array<float, 3>{red, red / 2, red / 2};
}

void MapCell::place(CharacterNode *newPlayer) {
    vacant = false;
    player = newPlayer;
    player->placed = true;
    player->cell = index;
}

std::array<CellCorner, 4> MapCell::picture(float centerX, float centerY) {
    constexpr std::array<std::array<float, 2>, 4> pictureCorners{{{tileMargin, tileMargin},
                                                                  {1 - tileMargin, tileMargin},
                                                                  {1 - tileMargin, 1 - tileMargin},
                                                                  {tileMargin, 1 - tileMargin}}};
    corners = square(static_cast<float>(halfSize));
    const std::array<float, 3> shown =
        selected ? std::array{color[0] - 0.4F, color[1] + 0.5F, color[2] + 0.5F} : color;
    std::array<CellCorner, 4> result{};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        result[i] = {pictureCorners[i], shown, {centerX + corners[i].x, centerY + corners[i].y, 0}};
    }
    return result;
}

void MapCell::draw() {
    glPushMatrix();
    const std::array<CellCorner, 4> square = picture(0, 0);
    glColor3fv(square[0].color.data());
    glBegin(GL_POLYGON);
    for (const CellCorner &corner : square) {
        glTexCoord2fv(corner.picture.data());
        glVertex3fv(&corner.position.x);
    }
    glEnd();
    if (!vacant && player->active) {
        if (player->cell == index) {
            drawPlayerMark();
        } else {
            vacant = true;
        }
    }
    glPopMatrix();
}

void MapCell::drawPlayerMark() const {
    glDisable(GL_TEXTURE_2D);
    if (player->current) {
        glColor3f(0, 0, 0);
        sendCorners(corners);
    }
    const int team = player->teamIndex;
    if (team >= 0 && team < CharacterNode::teamCount) {
        glColor3fv(teamColors[static_cast<std::size_t>(team)].data());
    }
    sendCorners(square(static_cast<float>(halfSize) - frame));
    glEnable(GL_TEXTURE_2D);
}
