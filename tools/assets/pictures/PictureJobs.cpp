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
constexpr int waterQuality = 96;
constexpr int birdQuality = 94;
constexpr int skyQuality = 94;
constexpr int skySide = 512;

using SkyFunction = glm::vec3 (*)(glm::vec3);

struct NamedPicture {
    const char *name;
    Picture (*make)();
};

AssetJob pictureJob(const NamedPicture &named, int quality) {
    const QString name = QStringLiteral("textures/%1.jpg").arg(QLatin1String(named.name));
    return {name, [name, make = named.make, quality](const QDir &data) {
                Picture picture = make();
                cutWhereQuiet(picture);
                return writeImage(data, name, toImage(picture), quality);
            }};
}

AssetJob birdJob(const char *bird, QImage (*make)()) {
    const QString name = QStringLiteral("textures/%1.jpg").arg(QLatin1String(bird));
    return {name, [name, make](const QDir &data) { return writeImage(data, name, make(), birdQuality); }};
}

AssetJob skyJob(const char *sky, SkyFunction color, int face) {
    const QString name =
        QStringLiteral("CubeMap/%1/mount%2.jpg")
            .arg(QLatin1String(sky), QLatin1String(skyFaceSuffixes[static_cast<std::size_t>(face)]));
    return {name, [name, color, face](const QDir &data) {
                Picture picture(skySide);
                picture.fill([&](glm::vec2 uv) { return color(glm::normalize(skyDirection(face, uv))); });
                return writeImage(data, name, toImage(picture), skyQuality);
            }};
}

} // namespace

std::vector<AssetJob> pictureJobs() {
    std::vector<AssetJob> jobs;
    for (const NamedPicture &ground :
         {NamedPicture{"desert2", stonyDesert}, NamedPicture{"vulcanic2", ashAndCinders},
          NamedPicture{"vulcanic1", glowingBasalt}, NamedPicture{"grass1", lushGrass},
          NamedPicture{"grass2", dryGrass}, NamedPicture{"grass3", mossyGrass},
          NamedPicture{"desert1", crackedEarth}, NamedPicture{"desert3", windRipples},
          NamedPicture{"sand", fineSand}, NamedPicture{"snow1", freshSnow}, NamedPicture{"snow2", packedSnow},
          NamedPicture{"daffodils", daffodilMeadow}}) {
        jobs.push_back(pictureJob(ground, groundQuality));
    }
    const std::vector<std::pair<const char *, SkyFunction>> skies{{"cloud1", cumulusSky},
                                                                  {"cloud2", overcastSky},
                                                                  {"cirri", cirrusSky},
                                                                  {"clean1", clearSky},
                                                                  {"clean2", dustySky}};
    for (const auto &[name, color] : skies) {
        for (int face = 0; face < static_cast<int>(skyFaceSuffixes.size()); ++face) {
            jobs.push_back(skyJob(name, color, face));
        }
    }
    for (const NamedPicture &water : {NamedPicture{"water1", calmWater}, NamedPicture{"water2", rippledWater},
                                      NamedPicture{"water3", roughWater}}) {
        jobs.push_back(pictureJob(water, waterQuality));
    }
    jobs.push_back(birdJob("parrot", parrotPicture));
    jobs.push_back(birdJob("eagle1", brownEaglePicture));
    jobs.push_back(birdJob("eagle2", whiteHeadedEaglePicture));
    const QString tile = QStringLiteral("textures/tile.png");
    jobs.push_back(
        {tile, [tile](const QDir &data) { return writeImage(data, tile, toImage(cellTile()), 90); }});
    return jobs;
}
