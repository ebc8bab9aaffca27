#include "scene/CharacterNames.h"
#include "tools/assets/AssetJob.h"
#include "tools/assets/characters/Figure.h"
#include "tools/assets/characters/Md2Writer.h"
#include "tools/assets/characters/SkinBaker.h"

#include <QSaveFile>
#include <algorithm>
#include <array>

namespace {

// In the catalogue's order.
constexpr std::array<Figure (*)(), characterNames.size()> figureMakers{
    makeTerminator, makeHayden, makeHunter, makeRat, makeDire, makeWalker, makeMarine};
constexpr std::array<std::vector<Part> (*)(), weaponNames.size()> weaponMakers{makeSmallGun, makeAnnientatore,
                                                                               makeStandard};

/// As seen in an image, 0 … 1.
constexpr std::array<glm::vec3, teamNames.size()> teamColours{
    {{0.14f, 0.32f, 0.80f}, {0.13f, 0.54f, 0.19f}, {0.78f, 0.12f, 0.10f}, {0.90f, 0.90f, 0.88f}}};

bool save(const QDir &directory, const QString &name, const QByteArray &bytes) {
    QSaveFile file(directory.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

bool save(const QDir &directory, const QString &name, const QImage &picture) {
    QSaveFile file(directory.filePath(name));
    return file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.commit();
}

std::vector<glm::vec3> posed(const Mesh &mesh, const Pose &pose) {
    std::vector<glm::vec3> frame;
    for (const MeshVertex &vertex : mesh.vertices) {
        frame.push_back(glm::mix(pose.carry(vertex.bones.first, vertex.position),
                                 pose.carry(vertex.bones.second, vertex.position), vertex.bones.toSecond));
    }
    return frame;
}

/// The weapon's mesh in the figure's hand, frame by frame.
std::vector<std::vector<glm::vec3>> carried(const Mesh &weapon, const Figure &figure,
                                            const std::vector<Pose> &poses) {
    std::vector<std::vector<glm::vec3>> frames;
    for (const Pose &pose : poses) {
        std::vector<glm::vec3> &frame = frames.emplace_back();
        for (const MeshVertex &vertex : weapon.vertices)
            frame.push_back(pose.carry(figure.rig.arm[Right].end, figure.rig.atWeapon(vertex.position)));
    }
    return frames;
}

bool makeCharacter(const QDir &data, std::size_t number) {
    const QDir directory(data.filePath(QLatin1String(characterNames[number])));
    const Figure figure = figureMakers[number]();
    const std::vector<Pose> poses = idleFrames(figure);
    const Mesh mesh = buildMesh(figure.parts);
    std::vector<std::vector<glm::vec3>> frames;
    frames.reserve(poses.size());
    for (const Pose &pose : poses)
        frames.push_back(posed(mesh, pose));
    bool good = directory.mkpath(QStringLiteral(".")) &&
                save(directory, QStringLiteral("tris.md2"), modelFile(mesh, frames));
    for (std::size_t i = 0; i < weaponMakers.size(); ++i) {
        const Mesh held = buildMesh(weaponMakers[i]());
        good = good && save(directory, QLatin1String(weaponNames[i]) + QStringLiteral(".md2"),
                            modelFile(held, carried(held, figure, poses)));
    }
    const SkinBaker baker(mesh, figure.parts);
    for (std::size_t i = 0; i < teamColours.size(); ++i)
        good = good && save(directory, QLatin1String(teamNames[i]) + QStringLiteral(".png"),
                            baker.skin(teamColours[i]));
    return good;
}

/// One skin serves the weapon in every hand.
bool makeWeaponSkin(const QDir &data, std::size_t number) {
    const std::vector<Part> parts = weaponMakers[number]();
    const QImage skin = SkinBaker(buildMesh(parts), parts).skin(glm::vec3(0.5f));
    const auto saveFor = [&](const char *character) {
        const QDir directory(data.filePath(QLatin1String(character)));
        return directory.mkpath(QStringLiteral(".")) &&
               save(directory, QLatin1String(weaponNames[number]) + QStringLiteral(".png"), skin);
    };
    return std::all_of(characterNames.begin(), characterNames.end(), saveFor);
}

} // namespace

std::vector<AssetJob> characterJobs() {
    std::vector<AssetJob> jobs;
    for (std::size_t i = 0; i < characterNames.size(); ++i)
        jobs.push_back(
            {QLatin1String(characterNames[i]), [i](const QDir &data) { return makeCharacter(data, i); }});
    for (std::size_t i = 0; i < weaponNames.size(); ++i) {
        jobs.push_back({QLatin1String(weaponNames[i]) + QStringLiteral(".png"),
                        [i](const QDir &data) { return makeWeaponSkin(data, i); }});
    }
    return jobs;
}
