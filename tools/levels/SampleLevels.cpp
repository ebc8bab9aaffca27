#include "tools/levels/SampleLevels.h"

#include "environment/BackgroundNode.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "tools/levels/Landscapes.h"
#include "tools/levels/Sculptor.h"

namespace {

constexpr float smallGun = 0.3F;
constexpr float standard = 0.5F;
constexpr float heavy = 0.7F;

QString texture(const char *name) {
    return QStringLiteral("./data/textures/%1.jpg").arg(QLatin1String(name));
}

} // namespace

void SampleLevel::make(LevelDocument &level) const {
    level.mesh->setSize(dimension, density);
    level.mesh->build();
    level.mesh->texture = texture(ground);
    level.mesh->color = groundColor;
    BackgroundNode &around = *level.background;
    around.setMapSize(density, dimension);
    around.groundTexture = texture(ground);
    around.groundColor = groundColor;
    around.water = water != nullptr;
    around.waterTexture = texture(water != nullptr ? water : "water1");
    around.waterColor = waterColor;
    around.cubeTexture = QStringLiteral("./data/CubeMap/%1/mount.jpg").arg(QLatin1String(sky));
    around.birdTexture = texture(bird);
    around.setSunColor(sun[0], sun[1], sun[2]);
    around.dayTime = dayTime;
    around.fog = fog;
    around.gravity = gravity;
    around.sunSpeed = sunSpeed;
    around.birdsNumber = birds;
    around.waterWalking = waterWalking;
    around.deathTouch = deathTouch;
    around.dynamicTime = dynamicTime;
    Sculptor sculptor(*level.mesh);
    shape(sculptor);
    std::size_t slot = 0;
    for (const SamplePlayer &player : players) {
        CharacterNode &node = *level.charSet->characters.at(slot++);
        node.name = QString::fromUtf8(player.name);
        node.modelIndex = player.model;
        node.teamIndex = player.team;
        node.weaponValue = player.weapon;
        node.active = true;
        node.placed = player.column >= 0;
        node.cell =
            node.placed ? player.column + CellGrid::cellsPerSide * player.row : CharacterNode::randomStart;
    }
}

const std::vector<SampleLevel> &sampleLevels() {
    static const std::vector<SampleLevel> levels{
        // Mountains around a lake with an island to fight over.
        {.fileName = "default",
         .dimension = 60,
         .density = 4,
         .ground = "grass1",
         .water = "water2",
         .sky = "cloud1",
         .bird = "eagle1",
         .groundColor = {0.95F, 0.95F, 0.90F},
         .waterColor = {0.08F, 0.34F, 1.0F},
         .sun = {1.0F, 0.96F, 0.88F},
         .dayTime = 70,
         .fog = false,
         .gravity = 9.8F,
         .sunSpeed = 15,
         .birds = 3,
         .waterWalking = true,
         .deathTouch = true,
         .dynamicTime = true,
         .shape = shapeLakeValley,
         .players = {{"Ada", 6, 0, standard, 3, 6},
                     {"Bruno", 2, 0, smallGun, 4, 11},
                     {"Cleo", 1, 1, standard, 17, 7},
                     {"Dario", 0, 1, heavy, 17, 11},
                     {"Edda", 3, 2, smallGun, 12, 13},
                     {"Falk", 4, 2, heavy, 7, 13}}},
        // A bay with islands of every shape: four teams, sixteen players, little dry land.
        {.fileName = "levels/islands.xml",
         .dimension = 80,
         .density = 4,
         .ground = "grass1",
         .water = "water2",
         .sky = "clean1",
         .bird = "parrot",
         .groundColor = {1.0F, 1.0F, 0.9F},
         .waterColor = {0.0F, 0.65F, 1.0F},
         .sun = {1.0F, 0.97F, 0.9F},
         .dayTime = 70,
         .fog = false,
         .gravity = 9.8F,
         .sunSpeed = 15,
         .birds = 9,
         .waterWalking = true,
         .deathTouch = true,
         .dynamicTime = true,
         .shape = shapeIslands,
         .players = {{"Gil", 6, 0, standard, 2, 5},
                     {"Hero", 1, 0, smallGun, 3, 4},
                     {"Ines", 2, 0, heavy, 4, 3},
                     {"Jona", 3, 0, smallGun, 6, 3},
                     {"Kira", 0, 1, heavy, 14, 4},
                     {"Levi", 5, 1, standard, 16, 4},
                     {"Mona", 4, 1, standard, 15, 6},
                     {"Nilo", 6, 1, smallGun, 16, 5},
                     {"Orla", 1, 2, standard, 3, 13},
                     {"Pino", 2, 2, smallGun, 4, 14},
                     {"Quin", 5, 2, heavy, 6, 16},
                     {"Rosa", 3, 2, standard, 5, 16},
                     {"Sven", 0, 3, heavy, 12, 16},
                     {"Tara", 4, 3, standard, 13, 16},
                     {"Ugo", 6, 3, smallGun, 15, 15},
                     {"Vera", 1, 3, smallGun, 16, 15}}},
        // A volcano whose lava has broken through its rim, under a storm's light.
        {.fileName = "levels/crater.xml",
         .dimension = 60,
         .density = 4,
         .ground = "vulcanic1",
         .water = "water3",
         .sky = "cloud2",
         .bird = "eagle2",
         .groundColor = {1.0F, 0.64F, 0.52F},
         .waterColor = {1.0F, 0.50F, 0.10F},
         .sun = {1.0F, 0.86F, 0.74F},
         .dayTime = 70,
         .fog = false,
         .gravity = 6.4F,
         .sunSpeed = 15,
         .birds = 0,
         .waterWalking = false,
         .deathTouch = true,
         .dynamicTime = true,
         .shape = shapeCrater,
         .players = {{"Wanda", 0, 0, heavy, 9, 1},
                     {"Xeno", 6, 0, standard, 11, 1},
                     {"Yves", 4, 1, standard, 18, 9},
                     {"Zoe", 1, 1, smallGun, 18, 11},
                     {"Arno", 5, 2, heavy, 9, 18},
                     {"Bela", 2, 2, smallGun, 11, 18},
                     {"Cora", 3, 3, smallGun, 1, 9},
                     {"Dion", 6, 3, standard, 1, 11}}},
        // A way between snowed-in peaks, in the fog of an early morning.
        {.fileName = "levels/pass.xml",
         .dimension = 40,
         .density = 4,
         .ground = "snow2",
         .water = "water1",
         .sky = "cirri",
         .bird = "eagle2",
         .groundColor = {1, 1, 1},
         .waterColor = {0.2F, 0.5F, 0.8F},
         .sun = {0.72F, 0.76F, 0.84F},
         .dayTime = 30,
         .fog = true,
         .gravity = 9.8F,
         .sunSpeed = 15,
         .birds = 3,
         .waterWalking = true,
         .deathTouch = true,
         .dynamicTime = false,
         .shape = shapePass,
         .players = {{"Elin", 2, 0, standard, 8, 1},
                     {"Frey", 6, 0, heavy, 12, 1},
                     {"Gwen", 1, 2, standard, 7, 18},
                     {"Hale", 5, 2, heavy, 11, 17}}},
        // A gorge that winds through terraced rock.
        {.fileName = "levels/canyon.xml",
         .dimension = 80,
         .density = 2,
         .ground = "desert1",
         .water = nullptr,
         .sky = "clean2",
         .bird = "eagle1",
         .groundColor = {1, 0.92F, 0.82F},
         .waterColor = {0.3F, 0.5F, 0.6F},
         .sun = {1, 0.92F, 0.8F},
         .dayTime = 70,
         .fog = false,
         .gravity = 12.5F,
         .sunSpeed = 6,
         .birds = 3,
         .waterWalking = false,
         .deathTouch = true,
         .dynamicTime = true,
         .shape = shapeGorge,
         .players = {{"Igor", 0, 0, heavy, 12, 0},
                     {"Jade", 6, 0, standard, 12, 2},
                     {"Kaan", 2, 0, smallGun, 11, 1},
                     {"Lena", 3, 0, smallGun, 13, 3},
                     {"Milo", 4, 1, heavy, 7, 10},
                     {"Nora", 1, 1, standard, 8, 9},
                     {"Otis", 5, 1, standard, 6, 12},
                     {"Pia", 6, 1, smallGun, 9, 8},
                     {"Remo", 0, 2, standard, 10, 17},
                     {"Suri", 4, 2, heavy, 9, 16},
                     {"Timo", 2, 2, smallGun, 12, 18},
                     {"Uma", 1, 2, standard, 11, 19}}},
        // Three lakes in a meadow at noon; everybody starts somewhere.
        {.fileName = "levels/meadow.xml",
         .dimension = 40,
         .density = 2,
         .ground = "daffodils",
         .water = "water2",
         .sky = "cirri",
         .bird = "parrot",
         .groundColor = {0.95F, 0.95F, 0.92F},
         .waterColor = {0.08F, 0.34F, 1.0F},
         .sun = {1, 0.97F, 0.9F},
         .dayTime = 70,
         .fog = false,
         .gravity = 9.8F,
         .sunSpeed = 15,
         .birds = 15,
         .waterWalking = true,
         .deathTouch = false,
         .dynamicTime = true,
         .shape = shapeMeadow,
         .players = {{"Vito", 3, 0, smallGun},
                     {"Wim", 1, 0, standard},
                     {"Xara", 2, 1, smallGun},
                     {"Yoko", 6, 1, standard},
                     {"Zeno", 5, 3, heavy}}},
    };
    return levels;
}
