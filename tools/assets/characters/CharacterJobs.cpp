#include "scene/CharacterNames.h"
#include "tools/assets/AssetJob.h"
#include "tools/assets/characters/Figure.h"
#include "tools/assets/characters/Md2Writer.h"
#include "tools/assets/characters/SkinBaker.h"

#include <QSaveFile>
#include <algorithm>
#include <array>
#include <glm/gtc/matrix_transform.hpp>

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
    std::vector<glm::vec3> vertices;
    for (const MeshVertex &vertex : mesh.vertices) {
        vertices.push_back(glm::mix(pose.carry(vertex.bones.first, vertex.position),
                                    pose.carry(vertex.bones.second, vertex.position), vertex.bones.toSecond));
    }
    return vertices;
}

/// Whether the vertex follows a body's own bones; a tail or a cape is laid on the floor.
bool ofBody(const MeshVertex &vertex, const Rig &rig) {
    return std::max(vertex.bones.first, vertex.bones.second) <= rig.leg[Left].end;
}

/// The figure frame by frame. No body sinks into the floor, and what lies rests on it.
std::vector<ModelFrame> shown(const Mesh &mesh, const Rig &rig, std::vector<NamedPose> &poses) {
    std::vector<ModelFrame> frames;
    for (NamedPose &frame : poses) {
        std::vector<glm::vec3> vertices = posed(mesh, frame.pose);
        float low = 1e9f;
        for (std::size_t i = 0; i < vertices.size(); ++i)
            low = ofBody(mesh.vertices[i], rig) ? std::min(low, vertices[i].z) : low;
        if (frame.lying || low < -0.05f) {
            frame.pose.moveAll(glm::translate(glm::mat4(1.0f), {0, 0, -low}));
            vertices = posed(mesh, frame.pose);
        }
        for (glm::vec3 &vertex : vertices)
            vertex.z = std::max(vertex.z, 0.0f);
        frames.push_back({frame.name, std::move(vertices)});
    }
    return frames;
}

/// The weapon's mesh in the figure's hand, frame by frame.
std::vector<ModelFrame> carried(const Mesh &weapon, const Figure &figure,
                                const std::vector<NamedPose> &poses) {
    std::vector<ModelFrame> frames;
    for (const NamedPose &pose : poses) {
        ModelFrame &frame = frames.emplace_back(ModelFrame{pose.name, {}});
        for (const MeshVertex &vertex : weapon.vertices)
            frame.vertices.push_back(
                pose.pose.carry(figure.rig.arm[Right].end, figure.rig.atWeapon(vertex.position)));
    }
    return frames;
}

bool makeModels(const QDir &data, std::size_t number) {
    const QDir directory(data.filePath(QLatin1String(characterNames[number])));
    const Figure figure = figureMakers[number]();
    std::vector<NamedPose> poses = framesOf(figure);
    const Mesh mesh = buildMesh(figure.parts);
    bool good = directory.mkpath(QStringLiteral(".")) &&
                save(directory, QStringLiteral("tris.md2"), modelFile(mesh, shown(mesh, figure.rig, poses)));
    for (std::size_t i = 0; i < weaponMakers.size(); ++i) {
        const Mesh held = buildMesh(weaponMakers[i]());
        good = good && save(directory, QLatin1String(weaponNames[i]) + QStringLiteral(".md2"),
                            modelFile(held, carried(held, figure, poses)));
    }
    return good;
}

bool makeSkins(const QDir &data, std::size_t number) {
    const QDir directory(data.filePath(QLatin1String(characterNames[number])));
    const Figure figure = figureMakers[number]();
    const SkinBaker baker(buildMesh(figure.parts), figure.parts);
    bool good = directory.mkpath(QStringLiteral("."));
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
    for (std::size_t i = 0; i < characterNames.size(); ++i) {
        const QString name = QLatin1String(characterNames[i]);
        jobs.push_back(
            {name + QStringLiteral("/skins"), [i](const QDir &data) { return makeSkins(data, i); }});
        jobs.push_back(
            {name + QStringLiteral("/tris.md2"), [i](const QDir &data) { return makeModels(data, i); }});
    }
    for (std::size_t i = 0; i < weaponNames.size(); ++i) {
        jobs.push_back({QLatin1String(weaponNames[i]) + QStringLiteral(".png"),
                        [i](const QDir &data) { return makeWeaponSkin(data, i); }});
    }
    return jobs;
}
