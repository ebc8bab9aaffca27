#include "tools/assets/AssetJob.h"
#include "tools/assets/pictures/Birds.h"
#include "tools/assets/pictures/Grounds.h"
#include "tools/assets/pictures/PictureFile.h"
#include "tools/assets/pictures/Skies.h"
#include "tools/assets/pictures/SkyFaces.h"
#include "tools/assets/pictures/Tile.h"
#include "tools/assets/pictures/Water.h"

namespace {

constexpr int groundQuality = 95;
constexpr int waterQuality = 98;
constexpr int birdQuality = 94;
// Blocks show first where colours change slowly.
constexpr int skyQuality = 97;

struct NamedPicture {
    const char *name;
    Picture (*make)();
    float evenness;  ///< How much of its patches is taken away, 0 to 1.
    float luminance; ///< Mean; 0 leaves it as it comes.
};

AssetJob pictureJob(const NamedPicture &named, int quality) {
    const QString name = QStringLiteral("textures/%1.jpg").arg(QLatin1String(named.name));
    return {name, [name, named, quality](const QDir &data) {
                Picture picture = named.make();
                evenOut(picture, named.evenness);
                if (named.luminance > 0) {
                    setMeanLuminance(picture, named.luminance);
                }
                cutWhereQuiet(picture);
                return writeImage(data, name, toImage(picture), quality);
            }};
}

AssetJob birdJob(const BirdLook &look) {
    const QString name = QStringLiteral("textures/%1.jpg").arg(QLatin1String(look.name));
    return {name,
            [name, &look](const QDir &data) { return writeImage(data, name, paintBird(look), birdQuality); }};
}

AssetJob skyJob(const Sky &sky, int face) {
    const QString name =
        QStringLiteral("CubeMap/%1/mount%2.jpg")
            .arg(QLatin1String(sky.name), QLatin1String(skyFaceSuffixes[static_cast<std::size_t>(face)]));
    return {name, [name, &sky, face](const QDir &data) {
                Picture picture(sky.side);
                picture.fill([&](glm::vec2 uv) { return sky.color(glm::normalize(skyDirection(face, uv))); });
                return writeImage(data, name, toImage(picture), skyQuality);
            }};
}

const std::vector<NamedPicture> grounds{
    {"desert2", stonyDesert, 0.8F, 0.52F},     {"vulcanic2", ashAndCinders, 0.8F, 0.42F},
    {"vulcanic1", glowingBasalt, 0.8F, 0.36F}, {"grass1", lushGrass, 0.8F, 0.46F},
    {"grass2", dryGrass, 0.8F, 0.54F},         {"grass3", mossyGrass, 0.8F, 0.40F},
    {"desert1", crackedEarth, 0.6F, 0.47F},    {"desert3", windRipples, 0.6F, 0.58F},
    {"sand", fineSand, 0.6F, 0.62F},           {"snow1", freshSnow, 0.6F, 0.82F},
    {"snow2", packedSnow, 0.8F, 0.70F},        {"daffodils", daffodilMeadow, 0.8F, 0.48F}};

const std::vector<NamedPicture> waters{
    {"water1", calmWater, 0.8F, 0}, {"water2", rippledWater, 0.8F, 0}, {"water3", roughWater, 0.8F, 0}};

} // namespace

std::vector<AssetJob> pictureJobs() {
    std::vector<AssetJob> jobs;
    for (const Sky &sky : skies()) {
        for (int face = 0; face < static_cast<int>(skyFaceSuffixes.size()); ++face) {
            jobs.push_back(skyJob(sky, face));
        }
    }
    for (const NamedPicture &ground : grounds) {
        jobs.push_back(pictureJob(ground, groundQuality));
    }
    for (const NamedPicture &water : waters) {
        jobs.push_back(pictureJob(water, waterQuality));
    }
    for (const BirdLook &look : birdLooks()) {
        jobs.push_back(birdJob(look));
    }
    const QString tile = QStringLiteral("textures/tile.png");
    jobs.push_back(
        {tile, [tile](const QDir &data) { return writeImage(data, tile, toImage(cellTile()), 90); }});
    return jobs;
}
