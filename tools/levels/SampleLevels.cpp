#include "tools/levels/SampleLevels.h"

#include "environment/BackgroundNode.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "tools/levels/Sculptor.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>

namespace {

using Color = std::array<float, 3>;

struct Player {
    const char *name;
    int model;
    int team;
    float weapon; ///< 0.3 small gun, 0.5 standard, 0.7 Annientatore.
    int column;
    int row;
};

constexpr float smallGun = 0.3F;
constexpr float standard = 0.5F;
constexpr float heavy = 0.7F;

void setSize(LevelDocument &level, int dimension, int density) {
    level.mesh->setSize(dimension, density);
    level.mesh->build();
    level.background->setMapSize(density, dimension);
}

void dress(LevelDocument &level, const char *ground, const char *water, const char *sky, const char *bird) {
    const auto texture = [](const char *name) { return QStringLiteral("./data/textures/%1.jpg").arg(name); };
    level.mesh->texture = texture(ground);
    level.background->groundTexture = texture(ground);
    level.background->waterTexture = texture(water);
    level.background->cubeTexture = QStringLiteral("./data/CubeMap/%1/mount.jpg").arg(sky);
    level.background->birdTexture = texture(bird);
}

void paintGround(LevelDocument &level, const Color &color) {
    level.mesh->color = color;
    level.background->groundColor = color;
}

void light(LevelDocument &level, int dayTime, const Color &sun, bool fog) {
    level.background->dayTime = dayTime;
    level.background->setSunColor(sun[0], sun[1], sun[2]);
    level.background->fog = fog;
}

void addPlayers(LevelDocument &level, std::initializer_list<Player> players) {
    std::size_t slot = 0;
    for (const Player &player : players) {
        CharacterNode &node = *level.charSet->characters.at(slot++);
        node.name = QString::fromUtf8(player.name);
        node.modelIndex = player.model;
        node.teamIndex = player.team;
        node.weaponValue = player.weapon;
        node.active = true;
        node.placed = true;
        node.cell = player.column + CellGrid::cellsPerSide * player.row;
    }
}

/// A repeatable number from 0 to 1 for a cell, to break up what is too regular.
double scatter(int column, int row) {
    auto h = static_cast<std::uint32_t>(column * 374761393 + row * 668265263);
    h = (h ^ (h >> 13)) * 1274126177U;
    return static_cast<double>((h ^ (h >> 16)) & 0xFFFFU) / 65535.0;
}

/// A round hill's share of its height at a distance, 1 in the middle and 0 from its radius on.
double hill(double column, double row, double atColumn, double atRow, double radius) {
    const double d = std::hypot(column - atColumn, row - atRow) / radius;
    return d < 1 ? 0.5 + 0.5 * std::cos(d * 3.141592653589793) : 0;
}

/// Hills around a lake, with a saddle to fight over.
void makeDefault(LevelDocument &level) {
    setSize(level, 60, 4);
    dress(level, "grass1", "water2", "cloud1", "eagle1");
    light(level, 70, {1, 0.95F, 0.85F}, false);
    Sculptor sculptor(*level.mesh);
    sculptor.turnWheel([](int c, int r) {
        const double height = 16 * hill(c, r, 4.5, 14.5, 5.5) + 12 * hill(c, r, 14.5, 15, 5) +
                              6 * hill(c, r, 3.5, 5, 4.5) + 7 * hill(c, r, 9.5, 18, 4) +
                              4 * hill(c, r, 16, 3.5, 3.5);
        return static_cast<int>(std::lround(height + 0.5 * scatter(c, r) * (height > 1 ? 1 : 0)));
    });
    sculptor.turnWheel([](int c, int r) {
        const double lake = hill(c, r, 10.5, 8, 4.6) + 0.7 * hill(c, r, 13.5, 9.5, 3.2);
        return lake > 0.35 ? -static_cast<int>(std::lround(2 + 3 * lake)) : 0;
    });
    sculptor.erodeTimes(7);
    addPlayers(level, {{"Ada", 6, 0, standard, 3, 8},
                       {"Bruno", 2, 0, smallGun, 5, 10},
                       {"Cleo", 1, 1, standard, 16, 7},
                       {"Dario", 0, 1, heavy, 17, 9},
                       {"Edda", 3, 2, smallGun, 9, 14},
                       {"Falk", 4, 2, heavy, 11, 14}});
}

/// Islands in a wide bay: four teams, sixteen players, little dry land.
void makeIslands(LevelDocument &level) {
    setSize(level, 80, 4);
    dress(level, "sand", "water2", "clean1", "parrot");
    paintGround(level, {0.8F, 0.78F, 0.68F});
    level.background->waterColor = {0.1F, 0.6F, 1};
    light(level, 50, {1, 0.97F, 0.9F}, false);
    level.background->birdsNumber = 9;
    const auto land = [](int c, int r) {
        return hill(c, r, 4.5, 4.5, 4.5) + hill(c, r, 15, 4.5, 4.2) + hill(c, r, 4.5, 15, 4.2) +
               hill(c, r, 14.5, 14.8, 4.8) + 1.2 * hill(c, r, 9.5, 9.7, 3.4);
    };
    Sculptor sculptor(*level.mesh);
    sculptor.turnWheel([land](int c, int r) {
        const double height = land(c, r);
        if (c == 0 || r == 0 || c == 19 || r == 19) {
            return 0; // the shore of the bay
        }
        if (height < 0.28) {
            return -static_cast<int>(std::lround(2 + 3 * (0.28 - height) / 0.28));
        }
        return static_cast<int>(std::lround(6 * height + scatter(c, r)));
    });
    sculptor.erodeTimes(6);
    addPlayers(level, {{"Gil", 6, 0, standard, 3, 4},
                       {"Hero", 1, 0, smallGun, 5, 3},
                       {"Ines", 2, 0, heavy, 4, 6},
                       {"Jona", 3, 0, smallGun, 6, 5},
                       {"Kira", 0, 1, heavy, 14, 4},
                       {"Levi", 5, 1, standard, 16, 4},
                       {"Mona", 4, 1, standard, 15, 6},
                       {"Nilo", 6, 1, smallGun, 14, 6},
                       {"Orla", 1, 2, standard, 4, 14},
                       {"Pino", 2, 2, smallGun, 5, 16},
                       {"Quin", 5, 2, heavy, 3, 16},
                       {"Rosa", 3, 2, standard, 5, 14},
                       {"Sven", 0, 3, heavy, 14, 15},
                       {"Tara", 4, 3, standard, 15, 14},
                       {"Ugo", 6, 3, smallGun, 13, 14},
                       {"Vera", 1, 3, smallGun, 15, 16}});
}

/// A ring of lava rock around a flooded crater, under the last light.
void makeCrater(LevelDocument &level) {
    setSize(level, 60, 4);
    dress(level, "vulcanic1", "water3", "cloud2", "eagle2");
    paintGround(level, {0.95F, 0.85F, 0.8F});
    level.background->waterColor = {0.75F, 0.3F, 0.1F};
    light(level, 131, {1, 0.62F, 0.38F}, false);
    level.background->gravity = 6.4F;
    level.background->birdsNumber = 0;
    level.background->waterWalking = false;
    Sculptor sculptor(*level.mesh);
    sculptor.turnWheel([](int c, int r) {
        const double d = std::hypot(c - 9.5, r - 9.5);
        const double ring = std::exp(-(d - 5.6) * (d - 5.6) / 3.0);
        const bool gate = std::abs(c - 9.5) < 1.2 || std::abs(r - 9.5) < 1.2;
        if (d < 3.4) {
            return -5;
        }
        return static_cast<int>(std::lround((gate ? 3 : 12) * ring + 2 * scatter(c, r) * (d > 8 ? 1 : 0)));
    });
    sculptor.erodeTimes(4);
    addPlayers(level, {{"Wanda", 0, 0, heavy, 9, 2},
                       {"Xeno", 6, 0, standard, 11, 2},
                       {"Yves", 4, 1, standard, 17, 9},
                       {"Zoe", 1, 1, smallGun, 17, 11},
                       {"Arno", 5, 2, heavy, 9, 17},
                       {"Bela", 2, 2, smallGun, 11, 17},
                       {"Cora", 3, 3, smallGun, 2, 9},
                       {"Dion", 6, 3, standard, 2, 11}});
}

/// A snowed-in pass between two ridges, in fog at sunset.
void makePass(LevelDocument &level) {
    setSize(level, 40, 4);
    dress(level, "snow1", "water1", "cirri", "eagle2");
    level.background->waterColor = {0.35F, 0.45F, 0.55F};
    light(level, 131, {0.95F, 0.78F, 0.7F}, true);
    level.background->dynamicTime = false;
    Sculptor sculptor(*level.mesh);
    sculptor.turnWheel([](int c, int r) {
        const double bend = 9.5 + 2.2 * std::sin(r * 0.42);
        const double away = std::abs(c - bend);
        const double wall = std::min(1.0, std::max(0.0, (away - 2.0) / 4.0));
        const double fade = std::min({1.0, c / 2.0, (19 - c) / 2.0, r / 2.5, (19 - r) / 2.5});
        return static_cast<int>(std::lround(12 * wall * wall * fade + 1.5 * scatter(c, r) * wall +
                                            3 * std::exp(-(r - 9.5) * (r - 9.5) / 8.0)));
    });
    sculptor.turnWheel([](int c, int r) { return hill(c, r, 8.5, 3.6, 2) > 0.4 ? -2 : 0; });
    sculptor.erodeTimes(5);
    addPlayers(level, {{"Elin", 2, 0, standard, 9, 2},
                       {"Frey", 6, 0, heavy, 11, 3},
                       {"Gwen", 1, 2, standard, 9, 17},
                       {"Hale", 5, 2, heavy, 11, 16}});
}

/// Stepped mesas along a dry river bed, as the wheel leaves them.
void makeCanyon(LevelDocument &level) {
    setSize(level, 80, 2);
    dress(level, "desert1", "water1", "clean2", "eagle1");
    paintGround(level, {1, 0.92F, 0.82F});
    light(level, 111, {1, 0.9F, 0.75F}, false);
    level.background->water = false;
    level.background->waterWalking = false;
    level.background->gravity = 12.5F;
    level.background->sunSpeed = 6;
    Sculptor sculptor(*level.mesh);
    sculptor.turnWheel([](int c, int r) {
        const double river = 9.5 + 4 * std::sin(r * 0.33 + 0.6);
        const double away = std::abs(c - river);
        if (c == 0 || r == 0 || c == 19 || r == 19 || away < 1.6) {
            return 0;
        }
        const int step = away < 2.7 ? 2 : away < 4.2 ? 5 : away < 6.5 ? 8 : 10;
        const bool cleft = scatter(c / 2, r / 2) < 0.18;
        return cleft ? step / 2 : step;
    });
    addPlayers(level, {{"Igor", 0, 0, heavy, 12, 1},
                       {"Jade", 6, 0, standard, 13, 3},
                       {"Kaan", 2, 0, smallGun, 14, 1},
                       {"Lena", 3, 0, smallGun, 11, 3},
                       {"Milo", 4, 1, heavy, 7, 10},
                       {"Nora", 1, 1, standard, 5, 10},
                       {"Otis", 5, 1, standard, 6, 12},
                       {"Pia", 6, 1, smallGun, 8, 9},
                       {"Remo", 0, 2, standard, 11, 17},
                       {"Suri", 4, 2, heavy, 10, 16},
                       {"Timo", 2, 2, smallGun, 9, 18},
                       {"Uma", 1, 2, standard, 13, 18}});
}

/// A meadow with ponds at sunrise; everybody starts somewhere.
void makeMeadow(LevelDocument &level) {
    setSize(level, 40, 2);
    dress(level, "daffodils", "water2", "clean1", "parrot");
    level.background->waterColor = {0.25F, 0.4F, 0.45F};
    light(level, 30, {1, 0.8F, 0.6F}, false);
    level.background->deathTouch = false;
    level.background->birdsNumber = 15;
    Sculptor sculptor(*level.mesh);
    sculptor.turnWheel([](int c, int r) {
        const double ponds =
            std::max({hill(c, r, 5, 5.5, 2.6), hill(c, r, 14, 8, 3), hill(c, r, 8.5, 14.5, 3.2)});
        if (ponds > 0.3) {
            return -3;
        }
        return static_cast<int>(std::lround(2.4 * hill(c, r, 9.5, 8.5, 5) + 3 * hill(c, r, 15, 15, 4) +
                                            2.5 * hill(c, r, 3.5, 11, 4)));
    });
    sculptor.erodeTimes(4);
    addPlayers(level, {{"Vito", 3, 0, smallGun, 0, 0},
                       {"Wim", 1, 0, standard, 0, 0},
                       {"Xara", 2, 1, smallGun, 0, 0},
                       {"Yoko", 6, 1, standard, 0, 0},
                       {"Zeno", 5, 3, heavy, 0, 0}});
    for (const auto &player : level.charSet->characters) {
        player->placed = false;
        player->cell = CharacterNode::randomStart;
    }
}

} // namespace

const std::vector<SampleLevel> &sampleLevels() {
    static const std::vector<SampleLevel> levels{
        {QStringLiteral("default"), makeDefault},
        {QStringLiteral("levels/islands.xml"), makeIslands},
        {QStringLiteral("levels/crater.xml"), makeCrater},
        {QStringLiteral("levels/pass.xml"), makePass},
        {QStringLiteral("levels/canyon.xml"), makeCanyon},
        {QStringLiteral("levels/meadow.xml"), makeMeadow},
    };
    return levels;
}
